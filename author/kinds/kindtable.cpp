#include "kindtable.h"

#include <author/files/jsonparts.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

static void initializeKindResource()
{
    Q_INIT_RESOURCE(kinds);
}

namespace Orvane {
namespace Author {

namespace {

QStringList textsOf(const QJsonObject& object, const char* key)
{
    QStringList texts;
    const QJsonArray array = object.value(QLatin1String(key)).toArray();
    for (const QJsonValue& value : array)
        texts.append(value.toString());
    return texts;
}

/** One record for each object of the array under @p key. */
template <typename Record>
QList<Record> listOf(const QJsonObject& object, const char* key, Record (*read)(const QJsonObject&))
{
    QList<Record> records;
    const QJsonArray array = object.value(QLatin1String(key)).toArray();
    for (const QJsonValue& value : array)
        records.append(read(value.toObject()));
    return records;
}

Argument readArgument(const QJsonObject& object)
{
    return {textIn(object, "name"), textIn(object, "type")};
}

Method::Kind methodKind(const QString& name)
{
    if (name == QLatin1String("slot"))
        return Method::Slot;
    return name == QLatin1String("invokable") ? Method::Invokable : Method::Signal;
}

Method readMethod(const QJsonObject& object)
{
    Method method;
    method.kind = methodKind(textIn(object, "kind"));
    method.name = textIn(object, "name");
    method.returns = object.value(QLatin1String("returns")).toString(QStringLiteral("void"));
    method.arguments = listOf(object, "arguments", readArgument);
    method.effect = textIn(object, "effect");
    method.inert = flagIn(object, "inert");
    return method;
}

Property readProperty(const QJsonObject& object)
{
    Property property;
    property.name = textIn(object, "name");
    property.type = textIn(object, "type");
    property.fallback = textIn(object, "default");
    property.absent = textIn(object, "absent");
    property.unit = textIn(object, "unit");
    property.range = textIn(object, "range");
    property.choices = textsOf(object, "choices");
    property.refers = textIn(object, "refers");
    property.needs = textsOf(object, "needs");
    property.effect = textIn(object, "effect");
    property.translated = flagIn(object, "translated");
    property.inert = flagIn(object, "inert");
    property.late = flagIn(object, "late");
    return property;
}

ParameterElement readParameterElement(const QJsonObject& object)
{
    static const QStringList forms = {QStringLiteral("none"), QStringLiteral("leaf"), QStringLiteral("pair"),
                                      QStringLiteral("list"), QStringLiteral("ranges")};
    ParameterElement parameter;
    parameter.form = static_cast<ParameterElement::Form>(qMax(0, forms.indexOf(textIn(object, "form"))));
    parameter.text = textIn(object, "text");
    parameter.example = textIn(object, "example");
    parameter.hasUnit = flagIn(object, "unit");
    return parameter;
}

ControlClass::Control controlOf(const QString& name)
{
    static const QStringList controls = {QStringLiteral("none"),     QStringLiteral("layout"),
                                         QStringLiteral("headline"), QStringLiteral("display"),
                                         QStringLiteral("button"),   QStringLiteral("input")};
    return static_cast<ControlClass::Control>(qMax(0, controls.indexOf(name)));
}

Attribute readAttribute(const QJsonObject& object)
{
    return {textIn(object, "name"), textIn(object, "absent"), textIn(object, "effect"),
            flagIn(object, "needed")};
}

Element readElement(const QJsonObject& object)
{
    Element element;
    element.name = textIn(object, "name");
    element.summary = textIn(object, "summary");
    element.parents = textsOf(object, "parents");
    element.children = textsOf(object, "children");
    element.attributes = listOf(object, "attributes", readAttribute);
    element.holdsText = flagIn(object, "text");
    return element;
}

ValueType readValueType(const QJsonObject& object)
{
    return {textIn(object, "name"), textIn(object, "text"), textIn(object, "summary")};
}

ScriptFunction readFunction(const QJsonObject& object)
{
    return {textIn(object, "name"), textsOf(object, "arguments"), textIn(object, "effect")};
}

ScriptEscape readEscape(const QJsonObject& object)
{
    return {textIn(object, "text"), textIn(object, "becomes")};
}

ScriptLanguage readScript(const QJsonObject& object)
{
    ScriptLanguage script;
    script.escapes = listOf(object, "escapes", readEscape);
    script.functions = listOf(object, "functions", readFunction);
    script.constructors = textsOf(object, "constructors");
    script.objects = textsOf(object, "objects");
    script.constants = textsOf(object, "constants");
    script.words = textsOf(object, "words");
    script.members = listOf(object, "members", readFunction);
    script.signalMembers = listOf(object, "signalMembers", readFunction);
    return script;
}

/** What all rows have, to be joined to each class. */
struct Shared
{
    QList<Property> properties;
    QList<Property> customProperties;
    QList<Method> methods;
};

Shared readShared(const QJsonObject& object)
{
    Shared shared = {listOf(object, "properties", readProperty),
                     listOf(object, "customProperties", readProperty), listOf(object, "methods", readMethod)};
    for (Property& property : shared.properties)
        property.shared = true;
    for (Property& property : shared.customProperties)
        property.shared = true;
    return shared;
}

bool holds(const QList<Property>& properties, const QString& name)
{
    return std::any_of(properties.cbegin(), properties.cend(),
                       [&name](const Property& property) { return property.name == name; });
}

/** Joins what all rows have to a kind, which says of some that they do less for it: @p kind tells. */
void join(QList<Property>& properties, const QList<Property>& shared, const QJsonObject& kind)
{
    const QStringList inert = textsOf(kind, "inert");
    const QStringList late = textsOf(kind, "late");
    for (Property property : shared) {
        if (holds(properties, property.name))
            continue;
        property.inert = property.inert || inert.contains(property.name);
        property.late = late.contains(property.name);
        properties.append(property);
    }
}

/** What the classes of one kind have in common: everything but name and summary. */
ControlClass readKind(const QJsonObject& object, const Shared& shared)
{
    ControlClass kind;
    kind.delegate = textIn(object, "delegate");
    kind.section = textIn(object, "section");
    kind.control = controlOf(textIn(object, "control"));
    kind.needs = textsOf(object, "needs");
    kind.properties = listOf(object, "properties", readProperty);
    join(kind.properties, shared.properties, object);
    kind.customProperties = listOf(object, "customProperties", readProperty);
    join(kind.customProperties, shared.customProperties, QJsonObject());
    kind.methods = shared.methods + listOf(object, "methods", readMethod);
    kind.sharedMethods = shared.methods.size();
    kind.parameter = readParameterElement(object.value(QLatin1String("parameterXml")).toObject());
    return kind;
}

QJsonObject readResource()
{
    initializeKindResource();
    QFile file(QStringLiteral(":/author/kinds.json"));
    if (!file.open(QIODevice::ReadOnly))
        return QJsonObject();
    return QJsonDocument::fromJson(file.readAll()).object();
}

/** The record of that name; a pattern with '*' at its end counts if nothing is exact. */
const Property* findNamed(const QList<Property>& properties, const QString& name)
{
    const Property* pattern = nullptr;
    for (const Property& property : properties) {
        if (property.name == name)
            return &property;
        const bool open = property.name.endsWith(QLatin1Char('*'));
        if (open && name.startsWith(property.name.leftRef(property.name.size() - 1)))
            pattern = &property;
    }
    return pattern;
}

} // namespace

QString Method::signature() const
{
    QStringList types;
    for (const Argument& argument : arguments)
        types.append(argument.type);
    return name + QLatin1Char('(') + types.join(QLatin1Char(',')) + QLatin1Char(')');
}

QString Method::call() const
{
    QStringList names;
    for (const Argument& argument : arguments)
        names.append(argument.name);
    return name + QLatin1Char('(') + names.join(QLatin1String(", ")) + QLatin1Char(')');
}

bool Property::isNumber() const
{
    return type != QLatin1String("String") && type != QLatin1String("Bool");
}

const Property* ControlClass::findProperty(const QString& propertyName) const
{
    return findNamed(properties, propertyName);
}

const Property* ControlClass::findCustomProperty(const QString& propertyName) const
{
    return findNamed(customProperties, propertyName);
}

QList<const Method*> ControlClass::findMethods(const QString& methodName) const
{
    QList<const Method*> found;
    for (const Method& method : methods) {
        if (method.name == methodName)
            found.append(&method);
    }
    return found;
}

const Attribute* Element::findAttribute(const QString& attributeName) const
{
    for (const Attribute& attribute : attributes) {
        if (attribute.name == attributeName)
            return &attribute;
    }
    return nullptr;
}

QStringList ScriptLanguage::globals() const
{
    QStringList names = constructors + objects + constants;
    for (const ScriptFunction& function : functions)
        names.append(function.name);
    return names;
}

const KindTable& KindTable::instance()
{
    static const KindTable table;
    return table;
}

KindTable::KindTable()
{
    const QJsonObject root = readResource();
    m_valueTypes = listOf(root, "types", readValueType);
    m_elements = listOf(root, "elements", readElement);
    m_script = readScript(root.value(QLatin1String("script")).toObject());
    const QJsonObject reserved = root.value(QLatin1String("reserved")).toObject();
    m_reservedPrefixes = textsOf(reserved, "prefixes");
    m_reservedNames = textsOf(reserved, "names");

    const Shared shared = readShared(root.value(QLatin1String("rows")).toObject());
    const QJsonArray kinds = root.value(QLatin1String("kinds")).toArray();
    for (const QJsonValue& value : kinds) {
        ControlClass kind = readKind(value.toObject(), shared);
        const QJsonArray names = value.toObject().value(QLatin1String("classes")).toArray();
        for (const QJsonValue& name : names) {
            kind.name = textIn(name.toObject(), "name");
            kind.summary = textIn(name.toObject(), "summary");
            m_classIndex.insert(kind.name, m_classes.size());
            m_classes.append(kind);
        }
        if (kind.delegate == QLatin1String("ZorvaDelegate"))
            m_unknownClass = kind;
    }
    m_unknownClass.name.clear();

    // The sheet's object has what all objects of rows have, but no properties of a row.
    m_sheet = readKind(root.value(QLatin1String("sheet")).toObject(),
                       {QList<Property>(), QList<Property>(), shared.methods});
}

const ControlClass* KindTable::findClass(const QString& name) const
{
    const auto found = m_classIndex.constFind(name);
    return found == m_classIndex.cend() ? nullptr : &m_classes.at(*found);
}

const Element* KindTable::findElement(const QString& name) const
{
    for (const Element& element : m_elements) {
        if (element.name == name)
            return &element;
    }
    return nullptr;
}

bool KindTable::isValueType(const QString& name) const
{
    return std::any_of(m_valueTypes.cbegin(), m_valueTypes.cend(),
                       [&name](const ValueType& type) { return type.name == name; });
}

bool KindTable::isReservedProperty(const QString& name) const
{
    return m_reservedNames.contains(name) ||
           std::any_of(m_reservedPrefixes.cbegin(), m_reservedPrefixes.cend(),
                       [&name](const QString& prefix) { return name.startsWith(prefix); });
}

} // namespace Author
} // namespace Orvane
