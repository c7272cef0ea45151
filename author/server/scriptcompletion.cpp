#include "scriptcompletion.h"

#include "completionlist.h"
#include "cursorplace.h"
#include "words.h"

#include <author/check/scriptnames.h>

namespace Orvane {
namespace Author {

namespace {

/** Stands for the place in the code; no script has such a word. */
const QLatin1String mark("_zorva_place_");

CompletionItem methodItem(const Method& method)
{
    CompletionItem item(method.name,
                        method.kind == Method::Signal ? CompletionItem::Event : CompletionItem::Method,
                        QStringLiteral("%1 %2").arg(methodKindName(method.kind), method.call()));
    item.documentation = methodHelp(method);
    item.rank = method.inert ? 7 : 2;
    if (method.kind == Method::Signal)
        return item;
    QStringList stops;
    for (const Argument& argument : method.arguments)
        stops.append(QStringLiteral("${%1:%2}").arg(stops.size() + 1).arg(argument.name));
    item.snippet = QStringLiteral("%1(%2)").arg(method.name, stops.join(QLatin1String(", ")));
    return item;
}

CompletionItem functionItem(const ScriptFunction& function)
{
    CompletionItem item(function.name, CompletionItem::Function);
    item.documentation =
        QStringLiteral("**%1(%2)**: %3")
            .arg(function.name, function.arguments.join(QLatin1String(", ")), function.effect);
    item.rank = 4;
    return item;
}

class ScriptCompletion
{
public:
    ScriptCompletion(const CursorPlace& place, CompletionList& list)
        : m_place(place)
        , m_list(list)
        , m_language(KindTable::instance().script())
        , m_form(place.rest())
        , m_names(place.codeBefore() + mark)
    {
    }

    void run()
    {
        const int last = m_names.tokens().size() - 1;
        if (offerEscapes())
            return;
        // In a comment, a text or a pattern there is nothing to offer.
        if (last < 0 || m_names.tokens().at(last).kind != ScriptToken::Word ||
            !m_names.tokens().at(last).text.endsWith(mark))
            return;
        const bool isMember = last > 0 && m_names.tokens().at(last - 1).is(".");
        if (!isMember)
            offerGlobals(last);
        else if (last > 1)
            offerMembers(last - 2);
    }

private:
    bool offerEscapes()
    {
        const QString code = m_place.codeBefore();
        const int begin = code.lastIndexOf(QLatin1String("{{"));
        if (begin < 0 || m_place.typed().size() != code.size() - begin - 2)
            return false;
        for (const ScriptEscape& escape : m_language.escapes) {
            CompletionItem item(escape.text, CompletionItem::Constant,
                                QStringLiteral("becomes ") + escape.becomes);
            item.text = escape.text.mid(2);
            m_list.add(item);
        }
        return true;
    }

    // Globals

    void offerGlobals(int place)
    {
        offerDeclared(place);
        for (const WrittenRow& row : m_form.rows())
            offerObject(row);
        for (const WrittenRow& sheet : m_form.sheets())
            offerObject(sheet);
        for (const int enumeration : m_place.rest().elementsNamed("Enum")) {
            CompletionItem item(m_place.rest().element(enumeration).value("name"), CompletionItem::Enum);
            item.documentation = enumerationHelp(m_place.rest(), enumeration);
            item.rank = 2;
            m_list.add(item);
        }
        for (const ScriptFunction& function : m_language.functions)
            m_list.add(functionItem(function));
        offerNames(m_language.constructors + m_language.objects, CompletionItem::Class, 5);
        offerNames(m_language.constants, CompletionItem::Constant, 6);
        offerNames(m_language.words, CompletionItem::Keyword, 6);
    }

    void offerObject(const WrittenRow& row)
    {
        CompletionItem item(row.name(), CompletionItem::Variable, rowDetail(row));
        item.rank = 2;
        m_list.add(item);
    }

    /** What is declared before the place, and what the whole script declares for all. */
    void offerDeclared(int place)
    {
        QSet<QString> names = m_names.declaredAt(place);
        const int script = m_place.inRest(m_place.element());
        if (script >= 0)
            names.unite(ScriptNames(m_place.rest().textOf(script)).declaredAt(0));
        QStringList sorted(names.cbegin(), names.cend());
        sorted.sort();
        for (const QString& name : qAsConst(sorted)) {
            CompletionItem item(name, CompletionItem::Variable, QStringLiteral("of this script"));
            item.rank = 1;
            if (!name.endsWith(mark))
                m_list.add(item);
        }
    }

    void offerNames(const QStringList& names, CompletionItem::Kind kind, int rank)
    {
        for (const QString& name : names) {
            CompletionItem item(name, kind);
            item.rank = rank;
            m_list.add(item);
        }
    }

    // Members

    /** The row or sheet that a bare name means; null if it means none. */
    const WrittenRow* findObject(int token) const
    {
        const QString& name = m_names.tokens().at(token).text;
        const WrittenRow* found = nullptr;
        if (!m_names.isGlobal(token))
            return nullptr;
        for (const WrittenRow& sheet : m_form.sheets())
            found = sheet.name() == name ? &sheet : found;
        for (const WrittenRow& row : m_form.rows())
            found = row.name() == name ? &row : found;
        return found;
    }

    void offerMembers(int owner)
    {
        const int outer = m_names.ownerOf(owner);
        if (outer >= 0) {
            offerSignalMembers(outer, owner);
            return;
        }
        if (const WrittenRow* const row = findObject(owner)) {
            offerRowMembers(*row);
            return;
        }
        const int enumeration = findEnumeration(m_place.rest(), m_names.tokens().at(owner).text);
        if (m_names.isGlobal(owner) && enumeration >= 0)
            offerIdentifiers(enumeration);
    }

    void offerRowMembers(const WrittenRow& row)
    {
        for (const Method& method : row.kind().methods)
            m_list.add(methodItem(method));
        for (const Property& property : row.kind().properties) {
            CompletionItem item(property.name, CompletionItem::Property, property.type);
            item.documentation = propertyHelp(property);
            item.rank = property.inert ? 7 : 3;
            if (!property.name.endsWith(QLatin1Char('*')))
                m_list.add(item);
        }
        for (const ScriptFunction& member : m_language.members)
            m_list.add(functionItem(member));
    }

    void offerSignalMembers(int object, int member)
    {
        const WrittenRow* const row = findObject(object);
        if (!row)
            return;
        for (const Method* const method : row->kind().findMethods(m_names.tokens().at(member).text)) {
            for (const ScriptFunction& function : m_language.signalMembers) {
                if (method->kind != Method::Signal)
                    continue;
                CompletionItem item = functionItem(function);
                item.snippet = function.name + QStringLiteral("($1)");
                m_list.add(item);
            }
        }
    }

    void offerIdentifiers(int enumeration)
    {
        for (const int entry : m_place.rest().children(enumeration)) {
            CompletionItem item(entryPart(m_place.rest(), entry, "EnumIdentifier"),
                                CompletionItem::EnumMember, entryPart(m_place.rest(), entry, "DisplayName"));
            item.documentation = QStringLiteral("`%1`").arg(entryPart(m_place.rest(), entry, "Value"));
            m_list.add(item);
        }
    }

    const CursorPlace& m_place;
    CompletionList& m_list;
    const ScriptLanguage& m_language;
    const WrittenForm m_form;
    const ScriptNames m_names;
};

} // namespace

void completeScript(const CursorPlace& place, CompletionList& list)
{
    ScriptCompletion(place, list).run();
}

} // namespace Author
} // namespace Orvane
