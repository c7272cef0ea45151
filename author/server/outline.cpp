#include "outline.h"

#include "words.h"

#include <author/check/scriptnames.h>

#include <algorithm>

namespace Orvane {
namespace Author {

namespace {

struct Symbol
{
    enum Kind { Module = 2, Namespace = 3, Field = 8, Enum = 10, Function = 12, EnumMember = 22 };

    QString name;
    QString detail;
    Kind kind = Field;
    Range range;
    Range selection;
    QVector<Symbol> children;
};

class Outline
{
public:
    explicit Outline(const Description& description)
        : m_description(description)
    {
    }

    QVector<Symbol> symbols() const
    {
        QVector<Symbol> all;
        for (int i = 0; i < m_description.elements().size(); ++i) {
            const QString& name = m_description.element(i).name;
            if (name == QLatin1String("Enum"))
                all.append(enumeration(i));
            else if (name == QLatin1String("Sheet"))
                all.append(sheet(i));
            else if (name == QLatin1String("Script"))
                all.append(script(i));
        }
        return all;
    }

private:
    Symbol symbol(int element, Symbol::Kind kind, const QString& detail = QString()) const
    {
        const SourceElement& source = m_description.element(element);
        const SourceAttribute* const name = source.attribute("name");
        const bool isNamed = name && !name->value.isEmpty();
        return {isNamed ? name->value : source.name,
                detail,
                kind,
                {source.tag.begin, source.end},
                isNamed ? name->valueRange : source.nameRange(),
                {}};
    }

    Symbol enumeration(int element) const
    {
        Symbol made = symbol(element, Symbol::Enum);
        for (const int entry : m_description.children(element)) {
            Symbol member = symbol(entry, Symbol::EnumMember, entryPart(m_description, entry, "DisplayName"));
            const QString identifier = entryPart(m_description, entry, "EnumIdentifier");
            if (!identifier.isEmpty())
                member.name = identifier;
            made.children.append(member);
        }
        return made;
    }

    Symbol sheet(int element) const
    {
        Symbol made = symbol(element, Symbol::Module);
        bool isInGroup = false;
        for (const int child : m_description.children(element)) {
            if (m_description.element(child).name != QLatin1String("Widget"))
                continue;
            const WrittenRow row(m_description, child);
            const bool isHead = row.className() == QLatin1String("Headline");
            const Symbol symbolOfRow =
                symbol(child, isHead ? Symbol::Namespace : Symbol::Field, rowDetail(row));
            if (isHead || !isInGroup) {
                made.children.append(symbolOfRow);
                isInGroup = isInGroup || isHead;
                continue;
            }
            Symbol& group = made.children.last();
            group.children.append(symbolOfRow);
            group.range.end = symbolOfRow.range.end;
        }
        return made;
    }

    Symbol script(int element) const
    {
        Symbol made = symbol(element, Symbol::Module);
        const ScriptNames names(m_description.textOf(element));
        const QVector<int> offsets = m_description.textOffsets(element);
        for (const ScriptScope& scope : names.scopes()) {
            const ScriptToken* const name = scope.parent == 0 && scope.begin + 1 < scope.end
                                                ? &names.tokens().at(scope.begin + 1)
                                                : nullptr;
            if (!name || name->kind != ScriptToken::Word || !names.tokens().at(scope.begin).is("function"))
                continue;
            const ScriptToken& last = names.tokens().at(scope.end - 1);
            const Range range{offsets.value(names.tokens().at(scope.begin).offset),
                              offsets.value(last.offset + last.text.size() - 1) + 1};
            const int begin = offsets.value(name->offset);
            made.children.append(
                {name->text, QString(), Symbol::Function, range, {begin, begin + name->text.size()}, {}});
        }
        return made;
    }

    const Description& m_description;
};

QJsonArray tree(const OpenDocument& document, const QVector<Symbol>& symbols)
{
    QJsonArray nodes;
    for (const Symbol& symbol : symbols) {
        QJsonObject node{{QStringLiteral("name"), symbol.name},
                         {QStringLiteral("kind"), symbol.kind},
                         {QStringLiteral("range"), rangeJson(document, symbol.range)},
                         {QStringLiteral("selectionRange"), rangeJson(document, symbol.selection)}};
        if (!symbol.detail.isEmpty())
            node.insert(QStringLiteral("detail"), symbol.detail);
        if (!symbol.children.isEmpty())
            node.insert(QStringLiteral("children"), tree(document, symbol.children));
        nodes.append(node);
    }
    return nodes;
}

void flatten(const OpenDocument& document, const QVector<Symbol>& symbols, const QString& container,
             QJsonArray& list)
{
    for (const Symbol& symbol : symbols) {
        QJsonObject entry{{QStringLiteral("name"), symbol.name},
                          {QStringLiteral("kind"), symbol.kind},
                          {QStringLiteral("location"), locationJson(document, symbol.range)}};
        if (!container.isEmpty())
            entry.insert(QStringLiteral("containerName"), container);
        list.append(entry);
        flatten(document, symbol.children, symbol.name, list);
    }
}

/** Lines that can be folded into the first of them. */
struct Fold
{
    int first = 0;
    int last = 0;
    bool isComment = false;
};

class Folds
{
public:
    explicit Folds(const OpenDocument& document)
        : m_document(document)
        , m_description(document.description())
    {
    }

    QVector<Fold> all()
    {
        for (int i = 0; i < m_description.elements().size(); ++i) {
            const SourceElement& element = m_description.element(i);
            // The line with the end tag stays.
            const bool hasEndTag = element.end > element.contentEnd && !element.empty;
            add(element.tag.begin, hasEndTag ? element.contentEnd : element.end - 1, hasEndTag);
            if (element.name == QLatin1String("Script"))
                addBlocks(i);
        }
        for (const Comment& comment : m_description.comments())
            add(comment.range.begin, comment.range.end - 1, false, true);
        return m_folds;
    }

private:
    void add(int begin, int end, bool lastStays, bool isComment = false)
    {
        const int first = m_document.lineOf(begin);
        const int last = m_document.lineOf(end) - (lastStays ? 1 : 0);
        if (last > first)
            m_folds.append({first, last, isComment});
    }

    void addBlocks(int script)
    {
        const QVector<ScriptToken> tokens = scriptTokens(m_description.textOf(script));
        const QVector<int> offsets = m_description.textOffsets(script);
        QVector<int> open;
        for (const ScriptToken& token : tokens) {
            if (token.is("{"))
                open.append(offsets.value(token.offset));
            else if (token.is("}") && !open.isEmpty())
                add(open.takeLast(), offsets.value(token.offset), true);
        }
    }

    const OpenDocument& m_document;
    const Description& m_description;
    QVector<Fold> m_folds;
};

} // namespace

QJsonArray outlineOf(const OpenDocument& document, const ClientAbilities& abilities)
{
    const QVector<Symbol> symbols = Outline(document.description()).symbols();
    if (abilities.nestedSymbols)
        return tree(document, symbols);
    QJsonArray list;
    flatten(document, symbols, QString(), list);
    return list;
}

QJsonArray foldingRangesOf(const OpenDocument& document, const ClientAbilities& abilities)
{
    QVector<Fold> folds = Folds(document).all();
    if (abilities.foldingLimit > 0 && folds.size() > abilities.foldingLimit) {
        std::stable_sort(folds.begin(), folds.end(), [](const Fold& left, const Fold& right) {
            return left.last - left.first > right.last - right.first;
        });
        folds.resize(abilities.foldingLimit);
    }
    std::stable_sort(folds.begin(), folds.end(),
                     [](const Fold& left, const Fold& right) { return left.first < right.first; });
    QJsonArray ranges;
    for (const Fold& fold : qAsConst(folds)) {
        QJsonObject range{{QStringLiteral("startLine"), fold.first}, {QStringLiteral("endLine"), fold.last}};
        if (fold.isComment)
            range.insert(QStringLiteral("kind"), QStringLiteral("comment"));
        ranges.append(range);
    }
    return ranges;
}

} // namespace Author
} // namespace Orvane
