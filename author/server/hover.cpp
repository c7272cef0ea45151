#include "hover.h"

#include "effectivevalue.h"
#include "formnames.h"
#include "words.h"

#include <author/check/scriptnames.h>

#include <algorithm>

namespace Orvane {
namespace Author {

namespace {

const QString paragraph = QStringLiteral("\n\n");

class Hover
{
public:
    Hover(const OpenDocument& document, int offset)
        : m_document(document)
        , m_description(document.description())
        , m_kinds(KindTable::instance())
        , m_offset(offset)
        , m_element(m_description.elementAt(offset))
    {
    }

    /** Empty if there is nothing to tell. */
    const QString& text() const { return m_text; }
    const Range& range() const { return m_range; }

    void run()
    {
        if (m_element < 0 || m_description.isComment(m_offset))
            return;
        const SourceElement& element = m_description.element(m_element);
        if (touches(element.nameRange()))
            tell(element.nameRange(), elementText());
        else if (m_offset >= element.contentEnd && m_offset < element.end && !element.empty)
            tell({element.contentEnd, element.end}, elementText());
        else if (m_offset < element.tag.end)
            inTag(element);
        else if (element.name == QLatin1String("Script"))
            inScript();
        else if (isValue())
            tell(m_description.contentRange(m_element), propertyText(element.parent));
        else
            inText(element);
    }

private:
    bool touches(const Range& range) const { return m_offset >= range.begin && m_offset <= range.end; }

    void tell(const Range& range, const QString& text)
    {
        m_range = range;
        m_text = text;
    }

    // Elements and attributes

    bool isValue() const
    {
        const int parent = m_description.element(m_element).parent;
        return parent >= 0 && m_description.element(parent).name == QLatin1String("Property") &&
               m_description.element(parent).firstChild == m_element;
    }

    QString elementText() const
    {
        const QString& name = m_description.element(m_element).name;
        for (const ValueType& type : m_kinds.valueTypes()) {
            if (type.name == name)
                return valueTypeHelp(type);
        }
        const Element* const known = m_kinds.findElement(name);
        return known ? elementHelp(*known) : QString();
    }

    void inTag(const SourceElement& element)
    {
        const Element* const known = m_kinds.findElement(element.name);
        for (const SourceAttribute& attribute : element.attributes) {
            const Attribute* const meant = known ? known->findAttribute(attribute.name) : nullptr;
            if (touches(attribute.nameRange) && meant)
                tell(attribute.nameRange, attributeHelp(*meant));
            else if (touches(attribute.valueRange))
                tell(attribute.valueRange, attributeText(element, attribute));
        }
    }

    QString attributeText(const SourceElement& element, const SourceAttribute& attribute) const
    {
        if (element.name == QLatin1String("Widget") && attribute.name == QLatin1String("class")) {
            const ControlClass* const known = m_kinds.findClass(attribute.value);
            return known ? classHelp(*known) : QString();
        }
        if (element.name == QLatin1String("Property"))
            return propertyText(m_element);
        if (element.name == QLatin1String("Enum"))
            return enumerationHelp(m_description, m_element) + usersText(attribute.value);
        return element.name == QLatin1String("Widget") ? rowText(WrittenRow(m_description, m_element))
                                                       : QString();
    }

    // Rows and properties

    QString rowText(const WrittenRow& row) const
    {
        QString text = QStringLiteral("**%1**: %2").arg(row.name(), rowDetail(row));
        text += paragraph + row.kind().summary;
        if (row.isExported())
            text += paragraph + QStringLiteral("Parameter XML: `%1`").arg(row.path());
        if (m_document.subject().reading().fate(row.element()).isLost())
            text += paragraph + QStringLiteral("The live form does not have this row.");
        return text;
    }

    QString usersText(const QString& enumeration) const
    {
        QStringList users;
        for (const WrittenRow& row : m_document.subject().written().rows()) {
            if (row.text("enumName") == enumeration)
                users.append(QStringLiteral("`%1`").arg(row.name()));
        }
        return users.isEmpty()
                   ? QString()
                   : paragraph + QStringLiteral("Used by %1").arg(users.join(QLatin1String(", ")));
    }

    int ownerOf(int property) const
    {
        int owner = m_description.element(property).parent;
        while (owner >= 0 && m_description.element(owner).name != QLatin1String("Widget") &&
               m_description.element(owner).name != QLatin1String("Sheet"))
            owner = m_description.element(owner).parent;
        return owner;
    }

    QString propertyText(int element) const
    {
        const int owner = ownerOf(element);
        if (owner < 0)
            return QString();
        const WrittenRow row(m_description, owner);
        for (const WrittenProperty& property : row.all()) {
            if (property.element == element)
                return propertyText(row, property);
        }
        return QString();
    }

    QString propertyText(const WrittenRow& row, const WrittenProperty& property) const
    {
        const Property* const known = property.isCustom ? row.kind().findCustomProperty(property.name)
                                                        : row.kind().findProperty(property.name);
        QString text = known ? propertyHelp(*known)
                             : QStringLiteral("**%1**: kept for scripts and hosts").arg(property.name);
        text +=
            paragraph + QStringLiteral("Effective: ") + effectiveValue(m_document.subject(), row, property);
        if (known && known->refers == QLatin1String("enumeration")) {
            const int enumeration = findEnumeration(m_description, property.text);
            if (enumeration >= 0)
                text += paragraph + enumerationHelp(m_description, enumeration);
        }
        return text;
    }

    // Entries of enumerations

    void inText(const SourceElement& element)
    {
        const Element* const known = m_kinds.findElement(element.name);
        if (known && known->holdsText)
            tell(m_description.contentRange(m_element), elementHelp(*known));
    }

    QString entryText(const NamedThing& thing) const
    {
        const int enumeration = findEnumeration(m_description, thing.owner);
        for (const int entry : enumeration < 0 ? QVector<int>() : m_description.children(enumeration)) {
            if (entryPart(m_description, entry, "EnumIdentifier") == thing.name)
                return QStringLiteral("**%1**: `%2`, shown as \"%3\"")
                    .arg(thing.name, entryPart(m_description, entry, "Value"),
                         entryPart(m_description, entry, "DisplayName"));
        }
        return QString();
    }

    // The script

    void inScript()
    {
        const FormNames names(m_description);
        const NameUse* const use = names.useAt(m_offset);
        if (use && use->thing.kind != NamedThing::Variable) {
            tell(use->range, thingText(names, use->thing));
            return;
        }
        const ScriptNames script(m_description.textOf(m_element));
        const QVector<int> offsets = m_description.textOffsets(m_element);
        const int position =
            static_cast<int>(std::lower_bound(offsets.cbegin(), offsets.cend(), m_offset) - offsets.cbegin());
        const int token = script.tokenAt(position);
        if (token < 0 || script.tokens().at(token).kind != ScriptToken::Word)
            return;
        const ScriptToken& word = script.tokens().at(token);
        const int begin = offsets.value(word.offset);
        tell({begin, begin + word.text.size()}, wordText(names, script, token));
    }

    QString thingText(const FormNames& names, const NamedThing& thing) const
    {
        const WrittenRow* const object = names.findObject(thing.name);
        switch (thing.kind) {
        case NamedThing::Row:
            return object ? rowText(*object) : QString();
        case NamedThing::Sheet:
            return QStringLiteral("**%1**: the sheet").arg(thing.name);
        case NamedThing::Enumeration:
            return enumerationHelp(m_description, findEnumeration(m_description, thing.name));
        case NamedThing::Identifier:
            return entryText(thing);
        case NamedThing::Entry:
        case NamedThing::Variable:
        case NamedThing::Nothing:
            break;
        }
        return QString();
    }

    QString wordText(const FormNames& names, const ScriptNames& script, int token) const
    {
        const QString& word = script.tokens().at(token).text;
        const int owner = script.ownerOf(token);
        const bool isBare = script.isGlobal(token) && script.declaringScope(token) < 0;
        if (isBare)
            return functionText(m_kinds.script().functions, word);
        const WrittenRow* const object = owner >= 0 && script.declaringScope(owner) < 0
                                             ? names.findObject(script.tokens().at(owner).text)
                                             : nullptr;
        return object ? memberText(*object, word) : QString();
    }

    static QString functionText(const QList<ScriptFunction>& functions, const QString& name)
    {
        for (const ScriptFunction& function : functions) {
            if (function.name == name)
                return QStringLiteral("**%1(%2)**: %3")
                    .arg(name, function.arguments.join(QLatin1String(", ")), function.effect);
        }
        return QString();
    }

    QString memberText(const WrittenRow& row, const QString& name) const
    {
        QStringList texts;
        for (const Method* const method : row.kind().findMethods(name))
            texts.append(methodHelp(*method));
        if (!texts.isEmpty())
            return texts.join(paragraph);
        if (const WrittenProperty* const property = row.find(name))
            return propertyText(row, *property);
        const Property* const known = row.kind().findProperty(name);
        return known ? propertyHelp(*known) : functionText(m_kinds.script().members, name);
    }

    const OpenDocument& m_document;
    const Description& m_description;
    const KindTable& m_kinds;
    int m_offset;
    int m_element;
    QString m_text;
    Range m_range;
};

} // namespace

QJsonValue hoverAt(const OpenDocument& document, int offset, const ClientAbilities& abilities)
{
    Hover hover(document, offset);
    hover.run();
    if (hover.text().isEmpty())
        return QJsonValue();
    return QJsonObject{{QStringLiteral("contents"), markupJson(hover.text(), abilities)},
                       {QStringLiteral("range"), rangeJson(document, hover.range())}};
}

} // namespace Author
} // namespace Orvane
