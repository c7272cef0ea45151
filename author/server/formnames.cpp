#include "formnames.h"

#include "words.h"

#include <author/check/scriptnames.h>

namespace Orvane {
namespace Author {

FormNames::FormNames(const Description& description)
    : m_description(description)
    , m_form(description)
{
    readEnumerations();
    readRows();
    for (const WrittenRow& row : m_form.rows())
        readProperties(row);
    for (const int script : m_description.elementsNamed("Script"))
        readScript(script);
}

void FormNames::add(const NamedThing& thing, Range range, bool isDefinition, NameUse::Where where)
{
    NameUse use;
    use.thing = thing;
    use.range = range;
    use.isDefinition = isDefinition;
    use.where = where;
    m_uses.append(use);
}

void FormNames::readEnumerations()
{
    for (const int enumeration : m_description.elementsNamed("Enum")) {
        const SourceAttribute* const name = m_description.element(enumeration).attribute("name");
        if (!name)
            continue;
        m_globals.insert(name->value, NamedThing::Enumeration);
        add({NamedThing::Enumeration, name->value, QString()}, name->valueRange, true);
        for (const int entry : m_description.children(enumeration)) {
            const int identifier = m_description.child(entry, "EnumIdentifier");
            const int value = m_description.child(entry, "Value");
            if (identifier >= 0)
                add({NamedThing::Identifier, m_description.textOf(identifier), name->value},
                    m_description.contentRange(identifier), true);
            if (value >= 0)
                add({NamedThing::Entry, m_description.textOf(value), name->value},
                    m_description.contentRange(value), true);
        }
    }
}

void FormNames::readRows()
{
    const auto read = [this](const WrittenRow& row, NamedThing::Kind kind) {
        const SourceAttribute* const name = m_description.element(row.element()).attribute("name");
        if (!name || name->value.isEmpty())
            return;
        m_objects.insert(name->value, &row);
        m_globals.insert(name->value, kind);
        add({kind, name->value, QString()}, name->valueRange, true);
    };
    for (const WrittenRow& sheet : m_form.sheets())
        read(sheet, NamedThing::Sheet);
    for (const WrittenRow& row : m_form.rows())
        read(row, NamedThing::Row);
}

void FormNames::readProperties(const WrittenRow& row)
{
    for (const WrittenProperty& property : row.all()) {
        if (property.type < 0)
            continue;
        const Property* const known = property.isCustom ? row.kind().findCustomProperty(property.name)
                                                        : row.kind().findProperty(property.name);
        const Range range = m_description.contentRange(property.type);
        if (known && known->refers == QLatin1String("enumeration"))
            add({NamedThing::Enumeration, property.text, QString()}, range, false);
        else if (known && known->refers == QLatin1String("entry"))
            add({NamedThing::Entry, property.text, row.text("enumName")}, range, false);
        else if (property.name == QLatin1String("parameterXmlTag") ||
                 property.name == QLatin1String("customXmlTag"))
            readPath(property);
    }
}

void FormNames::readPath(const WrittenProperty& property)
{
    QVector<int> offsets;
    int begin = 0;
    for (const QString& part : property.text.split(QLatin1Char('/'))) {
        if (m_globals.value(part) == NamedThing::Row) {
            if (offsets.isEmpty())
                offsets = m_description.textOffsets(property.type);
            add({NamedThing::Row, part, QString()},
                {offsets.value(begin), offsets.value(begin + part.size())}, false, NameUse::Path);
        }
        begin += part.size() + 1;
    }
}

NamedThing FormNames::globalThing(const QString& name) const
{
    return {m_globals.value(name, NamedThing::Nothing), name, QString()};
}

void FormNames::readScript(int script)
{
    const ScriptNames names(m_description.textOf(script));
    const QVector<int> offsets = m_description.textOffsets(script);
    for (int i = 0; i < names.tokens().size(); ++i) {
        const ScriptToken& token = names.tokens().at(i);
        if (token.kind != ScriptToken::Word)
            continue;
        const int scope = names.declaringScope(i);
        const int owner = names.ownerOf(i);
        NamedThing thing;
        if (scope >= 0)
            thing = {NamedThing::Variable, token.text, QStringLiteral("%1/%2").arg(script).arg(scope)};
        else if (names.isGlobal(i))
            thing = globalThing(token.text);
        else if (owner >= 0 && names.declaringScope(owner) < 0 &&
                 m_globals.value(names.tokens().at(owner).text) == NamedThing::Enumeration)
            thing = {NamedThing::Identifier, token.text, names.tokens().at(owner).text};
        if (thing.kind == NamedThing::Nothing)
            continue;
        const bool isDefinition = scope >= 0 && names.scopes().at(scope).names.value(token.text) == i;
        const int end = offsets.value(token.offset + token.text.size() - 1) + 1;
        add(thing, {offsets.value(token.offset), end}, isDefinition, NameUse::Code);
        m_uses.last().script = script;
        m_uses.last().token = i;
    }
}

const NameUse* FormNames::useAt(int offset) const
{
    const NameUse* touching = nullptr;
    for (const NameUse& use : m_uses) {
        if (use.range.contains(offset))
            return &use;
        if (use.range.end == offset)
            touching = &use;
    }
    return touching;
}

QVector<NameUse> FormNames::usesOf(const NamedThing& thing) const
{
    QVector<NameUse> found;
    for (const NameUse& use : m_uses) {
        if (use.thing == thing)
            found.append(use);
    }
    return found;
}

QVector<NameUse> FormNames::definitionsOf(const NamedThing& thing) const
{
    QVector<NameUse> found;
    for (const NameUse& use : m_uses) {
        if (use.isDefinition && use.thing == thing)
            found.append(use);
    }
    return found;
}

const WrittenRow* FormNames::findObject(const QString& name) const
{
    return m_objects.value(name, nullptr);
}

} // namespace Author
} // namespace Orvane
