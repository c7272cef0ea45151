#include "completion.h"

#include "completionlist.h"
#include "cursorplace.h"
#include "scriptcompletion.h"
#include "words.h"

#include <author/check/families.h>

#include <QRegularExpression>

#include <algorithm>

namespace Orvane {
namespace Author {

namespace {

/** Which of the properties of a row or of the sheet are meant. */
struct PropertyBlock
{
    const ControlClass* kind = nullptr; // null where there are no properties
    int owner = -1;                     // the row or sheet in rest()
    bool isCustom = false;
};

class Completion
{
public:
    Completion(const CursorPlace& place, CompletionList& list)
        : m_place(place)
        , m_list(list)
        , m_kinds(KindTable::instance())
    {
    }

    void run()
    {
        switch (m_place.kind()) {
        case CursorPlace::Content:
            offerContent();
            break;
        case CursorPlace::TagName:
            offerElements();
            offerEndTag(QStringLiteral("/"));
            break;
        case CursorPlace::EndTag:
            offerEndTag(QString());
            break;
        case CursorPlace::AttributeName:
            offerAttributes();
            break;
        case CursorPlace::AttributeValue:
            offerAttributeValues();
            break;
        case CursorPlace::Script:
            completeScript(m_place, m_list);
            break;
        case CursorPlace::Comment:
            offerRules();
            break;
        case CursorPlace::Nothing:
            break;
        }
    }

private:
    // Elements

    bool isTextElement() const
    {
        const Element* const known = m_kinds.findElement(m_place.elementName());
        return known ? known->holdsText : m_kinds.isValueType(m_place.elementName());
    }

    void offerContent()
    {
        if (isTextElement()) {
            offerTexts();
            return;
        }
        offerElements();
        offerProperties(true);
        offerEndTag(QStringLiteral("</"));
    }

    /** Elements of which several may stand in one place. */
    static bool isRepeatable(const QString& name)
    {
        static const QStringList names{QStringLiteral("Enums"), QStringLiteral("Enum"),
                                       QStringLiteral("EnumValue"), QStringLiteral("Widget"),
                                       QStringLiteral("Property")};
        return names.contains(name);
    }

    bool isThere(const QString& name) const
    {
        const int parent = m_place.inRest(m_place.element());
        return (parent >= 0 || m_place.element() < 0) &&
               m_place.rest().child(parent, name.toUtf8().constData()) >= 0;
    }

    void offerElements()
    {
        const QString parent = m_place.elementName();
        if (parent == QLatin1String("Property")) {
            offerTypes();
            return;
        }
        for (const Element& element : m_kinds.elements()) {
            const bool fits = parent.isEmpty() ? element.parents.isEmpty() && m_place.element() < 0
                                               : element.parents.contains(parent);
            if (fits && (isRepeatable(element.name) || !isThere(element.name)))
                offerElement(element.name, elementSnippet(element), elementHelp(element), 3);
        }
    }

    void offerElement(const QString& name, const QString& snippet, const QString& help, int rank)
    {
        const bool hasBracket = m_place.kind() == CursorPlace::TagName;
        const QString begin = hasBracket ? name : QLatin1Char('<') + name;
        CompletionItem item;
        item.label = name;
        item.kind = CompletionItem::Class;
        item.documentation = help;
        item.text = begin;
        item.rank = rank;
        if (!isTagGoingOn())
            item.snippet = begin + snippet;
        m_list.add(item);
    }

    /** What stands behind the place in its line, blanks left out; null at the line's end. */
    QChar next() const
    {
        const QString& text = m_place.text();
        int index = m_place.offset();
        while (index < text.size() &&
               (text.at(index) == QLatin1Char(' ') || text.at(index) == QLatin1Char('\t')))
            ++index;
        const bool isOver = index >= text.size() || text.at(index) == QLatin1Char('\n') ||
                            text.at(index) == QLatin1Char('\r');
        return isOver ? QChar() : text.at(index);
    }

    /** True if the rest of the tag stands behind the place already. */
    bool isTagGoingOn() const
    {
        return m_place.kind() == CursorPlace::TagName && !next().isNull() && next() != QLatin1Char('<');
    }

    static QString elementSnippet(const Element& element)
    {
        if (element.name == QLatin1String("Property"))
            return QStringLiteral(" name=\"$1\"><${2:String}>$3</${2:String}></Property>");
        if (element.name == QLatin1String("EnumValue"))
            return QStringLiteral(
                ">\n\t<DisplayName>$1</DisplayName>\n\t<EnumIdentifier>$2</EnumIdentifier>\n"
                "\t<Value>$3</Value>\n</EnumValue>");
        if (element.name == QLatin1String("Script"))
            return QStringLiteral(" language=\"QtScript\"><![CDATA[\n$0\n]]></Script>");
        QString snippet;
        int stop = 0;
        for (const Attribute& attribute : element.attributes) {
            if (attribute.needed)
                snippet += QStringLiteral(" %1=\"$%2\"").arg(attribute.name).arg(++stop);
        }
        return snippet + (element.holdsText ? QStringLiteral(">$0</%1>") : QStringLiteral(">\n\t$0\n</%1>"))
                             .arg(element.name);
    }

    static QString typeSnippet(const QString& type)
    {
        return (type == QLatin1String("Bool") ? QStringLiteral(">${1|true,false|}</%1>")
                                              : QStringLiteral(">$1</%1>"))
            .arg(type);
    }

    void offerTypes()
    {
        // The first element in a property is its value; the rest is skipped.
        if (!m_place.before().children(m_place.element()).isEmpty())
            return;
        const Property* const property = propertyAt(m_place.element());
        for (const ValueType& type : m_kinds.valueTypes()) {
            const bool isMeant = property && property->type == type.name;
            offerElement(type.name, typeSnippet(type.name), valueTypeHelp(type), isMeant ? 0 : 4);
        }
    }

    void offerEndTag(const QString& begin)
    {
        if (m_place.element() < 0)
            return;
        const QString& name = m_place.before().element(m_place.element()).qualifiedName;
        CompletionItem item;
        item.label = begin + name;
        item.kind = CompletionItem::Keyword;
        item.detail =
            QStringLiteral("ends the element that begins in line %1")
                .arg(m_place.before().source().lineAt(m_place.before().element(m_place.element()).tag.begin));
        item.text = begin + name + (next() == QLatin1Char('>') ? QString() : QStringLiteral(">"));
        item.rank = 8;
        m_list.add(item);
    }

    // Attributes

    void offerAttributes()
    {
        const Element* const known = m_kinds.findElement(m_place.tag().name);
        const int same = m_place.rest().elementBeginningAt(m_place.tag().tag.begin);
        for (const Attribute& attribute : known ? known->attributes : QList<Attribute>()) {
            const QByteArray name = attribute.name.toUtf8();
            const bool isGiven = m_place.tag().attribute(name.constData()) ||
                                 (same >= 0 && m_place.rest().element(same).attribute(name.constData()));
            if (isGiven)
                continue;
            CompletionItem item;
            item.label = attribute.name;
            item.kind = CompletionItem::Property;
            item.documentation = attributeHelp(attribute);
            item.snippet = attribute.name + QStringLiteral("=\"$1\"");
            item.rank = attribute.needed ? 1 : 4;
            m_list.add(item);
        }
    }

    void offerAttributeValues()
    {
        const QString& element = m_place.tag().name;
        const QString& attribute = m_place.attribute();
        if (element == QLatin1String("Widget") && attribute == QLatin1String("class"))
            offerClasses();
        else if (element == QLatin1String("Property") && attribute == QLatin1String("name"))
            offerProperties(false);
        else if (element == QLatin1String("Enum") && attribute == QLatin1String("name"))
            offerMissingEnumerations();
        else if (element == QLatin1String("Script") && attribute == QLatin1String("language"))
            offerValue(CompletionItem(QStringLiteral("QtScript"), CompletionItem::Value));
    }

    void offerValue(CompletionItem item)
    {
        if (item.text.isEmpty())
            item.text = item.label;
        if (m_place.kind() == CursorPlace::AttributeValue || m_place.kind() == CursorPlace::Content)
            item.text = escapedText(item.text);
        if (m_place.kind() == CursorPlace::AttributeValue && !m_place.isQuoted())
            item.text = QLatin1Char('"') + item.text + QLatin1Char('"');
        m_list.add(item);
    }

    void offerClasses()
    {
        for (const ControlClass& controlClass : m_kinds.classes()) {
            CompletionItem item(controlClass.name, CompletionItem::Class);
            item.documentation = classHelp(controlClass);
            offerValue(item);
        }
    }

    /** Those that rows ask for and that are nowhere. */
    void offerMissingEnumerations()
    {
        const WrittenForm form(m_place.rest());
        for (const WrittenRow& row : form.rows()) {
            const QString name = row.text("enumName");
            if (findEnumeration(m_place.rest(), name) < 0)
                offerValue(CompletionItem(name, CompletionItem::Enum, rowDetail(row)));
        }
    }

    // Properties

    PropertyBlock blockAt() const
    {
        PropertyBlock block;
        const QString name = m_place.elementName();
        const int row = m_place.enclosing("Widget");
        const int sheet = m_place.enclosing("Sheet");
        block.isCustom = m_place.enclosing("CustomProperties") > qMax(row, sheet);
        if (row >= 0) {
            block.kind = m_kinds.findClass(m_place.before().element(row).value("class"));
            if (!block.kind)
                block.kind = &m_kinds.unknownClass();
            block.owner = m_place.inRest(row);
        } else if (sheet >= 0 && name != QLatin1String("Sheet")) {
            block.kind = &m_kinds.sheet();
            block.owner = m_place.inRest(sheet);
        }
        return block;
    }

    bool isBlockOfProperties() const
    {
        static const QStringList names{QStringLiteral("Widget"), QStringLiteral("Properties"),
                                       QStringLiteral("CustomProperties")};
        return names.contains(m_place.elementName());
    }

    void offerProperties(bool isWhole)
    {
        const PropertyBlock block = blockAt();
        if (!block.kind || !isBlockOfProperties())
            return;
        const std::optional<WrittenRow> owner =
            block.owner < 0 ? std::nullopt
                            : std::optional<WrittenRow>(WrittenRow(m_place.rest(), block.owner));
        const QList<Property>& properties =
            block.isCustom ? block.kind->customProperties : block.kind->properties;
        for (const Property& property : properties) {
            const bool isGiven =
                owner && (block.isCustom ? owner->findCustom(property.name) : owner->find(property.name));
            if (!isGiven)
                offerProperty(property, block.kind->needs.contains(property.name), isWhole);
        }
    }

    void offerProperty(const Property& property, bool isNeeded, bool isWhole)
    {
        CompletionItem item;
        item.label = property.name;
        // One name for many, to be gone on with.
        item.label.remove(QLatin1Char('*'));
        item.kind = CompletionItem::Property;
        item.detail =
            property.type + (property.unit.isEmpty() ? QString() : QStringLiteral(", ") + property.unit);
        item.documentation = propertyHelp(property);
        item.rank = property.inert ? 7 : isNeeded ? 0 : property.shared ? 2 : 1;
        if (!isWhole) {
            offerValue(item);
            return;
        }
        const QString begin = QStringLiteral("<Property name=\"%1\"><%2>").arg(item.label, property.type);
        item.text = begin;
        item.snippet = QStringLiteral("<Property name=\"%1\"><%2%3</Property>")
                           .arg(item.label, property.type, typeSnippet(property.type));
        m_list.add(item);
    }

    const Property* propertyAt(int element) const
    {
        const PropertyBlock block = blockAt();
        if (element < 0 || !block.kind)
            return nullptr;
        const QString name = m_place.before().element(element).value("name");
        return block.isCustom ? block.kind->findCustomProperty(name) : block.kind->findProperty(name);
    }

    // Texts

    void offerTexts()
    {
        const int element = m_place.enclosing("Property");
        if (element < 0 || m_place.before().element(m_place.element()).parent != element)
            return;
        const Property* const property = propertyAt(element);
        const bool isBool = m_place.elementName() == QLatin1String("Bool");
        if (isBool || (property && property->type == QLatin1String("Bool"))) {
            offerValue(CompletionItem(QStringLiteral("true"), CompletionItem::Keyword));
            offerValue(CompletionItem(QStringLiteral("false"), CompletionItem::Keyword));
            return;
        }
        const QString name = m_place.before().element(element).value("name");
        if (name == QLatin1String("parameterXmlTag") || name == QLatin1String("customXmlTag"))
            offerPaths();
        if (!property)
            return;
        if (property->refers == QLatin1String("enumeration"))
            offerEnumerations();
        else if (property->refers == QLatin1String("entry"))
            offerEntries();
        for (const QString& choice : property->choices)
            offerValue(CompletionItem(choice, CompletionItem::Value));
        if (property->isNumber() && !property->fallback.isEmpty())
            offerValue(CompletionItem(property->fallback, CompletionItem::Value,
                                      QStringLiteral("as without the property")));
    }

    void offerEnumerations()
    {
        for (const int enumeration : m_place.rest().elementsNamed("Enum")) {
            CompletionItem item(m_place.rest().element(enumeration).value("name"), CompletionItem::Enum);
            item.documentation = enumerationHelp(m_place.rest(), enumeration);
            offerValue(item);
        }
    }

    void offerEntries()
    {
        const int row = m_place.inRest(m_place.enclosing("Widget"));
        if (row < 0)
            return;
        const int enumeration =
            findEnumeration(m_place.rest(), WrittenRow(m_place.rest(), row).text("enumName"));
        for (const int entry : enumeration < 0 ? QVector<int>() : m_place.rest().children(enumeration))
            offerValue(CompletionItem(entryPart(m_place.rest(), entry, "Value"), CompletionItem::EnumMember,
                                      entryPart(m_place.rest(), entry, "DisplayName")));
    }

    void offerPaths()
    {
        const int row = m_place.inRest(m_place.enclosing("Widget"));
        const WrittenForm form(m_place.rest());
        QStringList groups;
        for (const WrittenRow& other : form.rows()) {
            if (other.element() == row || !other.kind().isExported())
                continue;
            const QString path = other.path();
            for (int slash = path.indexOf(QLatin1Char('/')); slash > 0 && slash < longestPath;
                 slash = path.indexOf(QLatin1Char('/'), slash + 1))
                groups.append(path.left(slash + 1));
        }
        groups.removeDuplicates();
        std::sort(groups.begin(), groups.end());
        for (const QString& group : qAsConst(groups))
            offerValue(
                CompletionItem(group, CompletionItem::Folder, QStringLiteral("a group of other rows")));
        if (row >= 0)
            offerValue(CompletionItem(m_place.rest().element(row).value("name"), CompletionItem::Value,
                                      QStringLiteral("the row's name, as without the property")));
    }

    // Comments

    void offerRules()
    {
        static const QRegularExpression permission(QStringLiteral("<!--\\s*zorva:\\s*allow\\s+[\\w-]*\\z"));
        const QString& text = m_place.before().source().text();
        if (!permission.match(text.mid(m_place.before().textEnd().begin)).hasMatch())
            return;
        for (const QString& id : ruleIds()) {
            CompletionItem item(id, CompletionItem::Value);
            item.documentation = QString::fromUtf8(findRule(id)->title);
            m_list.add(item);
        }
    }

    static constexpr int longestPath = 4096;

    const CursorPlace& m_place;
    CompletionList& m_list;
    const KindTable& m_kinds;
};

/** What a chosen item takes the place of. */
Range replacedRange(const CursorPlace& place)
{
    if (place.kind() != CursorPlace::Content || place.element() < 0)
        return place.word();
    const SourceElement& element = place.before().element(place.element());
    const bool isText = KindTable::instance().isValueType(element.name);
    if (!isText)
        return place.word();
    // A value is the whole text of its element.
    const QString& text = place.before().source().text();
    int begin = element.tag.end;
    while (begin < place.offset() && text.at(begin).isSpace())
        ++begin;
    const bool isOneLine = !text.midRef(begin, place.offset() - begin).contains(QLatin1Char('\n'));
    return {isOneLine ? begin : place.word().begin, place.offset()};
}

} // namespace

QJsonObject completionAt(const OpenDocument& document, int offset, const ClientAbilities& abilities)
{
    const CursorPlace place(document, offset);
    CompletionList list(document, replacedRange(place), abilities);
    Completion(place, list).run();
    return list.json();
}

} // namespace Author
} // namespace Orvane
