#include "relaxng.h"

#include <author/kinds/kindtable.h>

#include <QMap>
#include <QXmlStreamWriter>

#include <functional>
#include <initializer_list>
#include <utility>

namespace Orvane {
namespace Author {

namespace {

const QLatin1String anyProperty("property.any");
const QLatin1String anyValue("value.any");
// At least one character, line ends included.
const QLatin1String something("[\\s\\S]+");

/** Writes patterns; each function is one of them, its content is written by @p inside. */
class PatternWriter
{
public:
    using Attributes = std::initializer_list<std::pair<const char*, QString>>;

    explicit PatternWriter(QByteArray* target)
        : m_writer(target)
    {
        m_writer.setAutoFormatting(true);
        m_writer.setAutoFormattingIndent(2);
    }

    QXmlStreamWriter& writer() { return m_writer; }

    template <typename Inside>
    void pattern(const char* name, Attributes attributes, Inside inside)
    {
        m_writer.writeStartElement(QLatin1String(name));
        for (const auto& attribute : attributes)
            m_writer.writeAttribute(QLatin1String(attribute.first), attribute.second);
        inside();
        m_writer.writeEndElement();
    }
    template <typename Inside>
    void pattern(const char* name, Inside inside)
    {
        pattern(name, {}, inside);
    }
    template <typename Inside>
    void define(const QString& name, Inside inside)
    {
        pattern("define", {{"name", name}}, inside);
    }
    template <typename Inside>
    void element(const QString& name, Inside inside)
    {
        pattern("element", {{"name", name}}, inside);
    }
    template <typename Inside>
    void attribute(const QString& name, Inside inside)
    {
        pattern("attribute", {{"name", name}}, inside);
    }
    void ref(const QString& name)
    {
        pattern("ref", {{"name", name}}, [] {});
    }
    void text()
    {
        pattern("text", [] {});
    }
    void empty()
    {
        pattern("empty", [] {});
    }
    /** Exactly @p text, blanks included. */
    void value(const QString& text)
    {
        pattern("value", {{"type", QStringLiteral("string")}}, [&] { m_writer.writeCharacters(text); });
    }
    /** Text of an XML Schema datatype within bounds: its facets by name, as attributes are. */
    void data(const char* type, Attributes facets = {})
    {
        pattern("data", {{"type", QLatin1String(type)}}, [&] {
            for (const auto& facet : facets)
                pattern("param", {{"name", QLatin1String(facet.first)}},
                        [&] { m_writer.writeCharacters(facet.second); });
        });
    }
    /** What editors show beside a completion. */
    void documentation(const QString& text)
    {
        m_writer.writeTextElement(QStringLiteral("a:documentation"), QString(text).remove(QLatin1Char('`')));
    }

private:
    QXmlStreamWriter m_writer;
};

/** One of these words. */
void writeValues(PatternWriter& patterns, std::initializer_list<const char*> words)
{
    patterns.pattern("choice", [&] {
        for (const char* const word : words)
            patterns.value(QLatin1String(word));
    });
}

/** The text of a property of @p type. */
void writeText(PatternWriter& patterns, const QString& type)
{
    if (type == QLatin1String("Bool")) {
        writeValues(patterns, {"true", "false"});
    } else if (type == QLatin1String("Int")) {
        patterns.data("int");
    } else if (type == QLatin1String("Int64")) {
        patterns.data("long");
    } else if (type == QLatin1String("UInt64")) {
        // A sign may stand before it, which it may not before an "unsignedLong".
        patterns.data("nonNegativeInteger", {{"maxInclusive", QStringLiteral("18446744073709551615")}});
    } else if (type == QLatin1String("Double")) {
        patterns.data("double", {{"pattern", QStringLiteral("[^INF]*")}});
    } else {
        patterns.text();
    }
}

/** What stands for @p type in the type element @p element; nothing if that is as good as a mistake. */
std::function<void()> contentFor(PatternWriter& patterns, const QString& type, const QString& element)
{
    const QLatin1String truth("Bool");
    const QLatin1String words("String");
    if (type == element || type == words)
        return [&patterns, element] { writeText(patterns, element); };
    if (element == truth)
        return nullptr;
    if (type == truth)
        return [&patterns] { writeValues(patterns, {"true", "false", "1", "0"}); };
    return [&patterns, type] { writeText(patterns, type); };
}

/**
 * One pattern for each type of property: its type element with a text that the type can hold. The
 * engine asks for the text alone, so other type elements do as well.
 */
void writeTypes(PatternWriter& patterns, const KindTable& table)
{
    QStringList names = namesOf(table.valueTypes());
    for (const ValueType& type : table.valueTypes()) {
        // What an editor offers first is the type's own.
        names.move(names.indexOf(type.name), 0);
        patterns.define(type.name, [&] {
            patterns.documentation(type.summary);
            patterns.pattern("choice", [&] {
                for (const QString& element : qAsConst(names)) {
                    if (const auto content = contentFor(patterns, type.name, element))
                        patterns.element(element, content);
                }
            });
        });
    }
}

/** The names that a property may have, and what it then holds. */
void writeNames(PatternWriter& patterns, const QList<const Property*>& properties)
{
    patterns.attribute(QStringLiteral("name"), [&] {
        patterns.pattern("choice", [&] {
            for (const Property* property : properties) {
                if (property->name.endsWith(QLatin1Char('*')))
                    patterns.data("string", {{"pattern", property->name.chopped(1) + something}});
                else
                    patterns.value(property->name);
            }
        });
    });
}

/** True if its text is looked at, and for some words only. */
bool hasChoices(const Property& property)
{
    return !property.choices.isEmpty() && !property.inert;
}

void writeChoices(PatternWriter& patterns, const Property& property)
{
    patterns.element(property.type, [&] {
        patterns.pattern("choice", [&] {
            for (const QString& choice : property.choices)
                patterns.value(choice);
        });
    });
}

/** The element "Property" where only @p properties make sense. */
void writeProperties(PatternWriter& patterns, const QString& name, const QList<Property>& properties)
{
    QMap<QString, QList<const Property*>> byType;
    for (const Property& property : properties) {
        // What nothing looks at may be anything.
        if (!hasChoices(property))
            byType[property.inert ? QString(anyValue) : property.type].append(&property);
    }
    patterns.define(name, [&] {
        patterns.element(QStringLiteral("Property"), [&] {
            patterns.pattern("choice", [&] {
                for (auto it = byType.cbegin(); it != byType.cend(); ++it) {
                    patterns.pattern("group", [&] {
                        writeNames(patterns, it.value());
                        patterns.ref(it.key());
                    });
                }
                for (const Property& property : properties) {
                    if (!hasChoices(property))
                        continue;
                    patterns.pattern("group", [&] {
                        writeNames(patterns, {&property});
                        writeChoices(patterns, property);
                    });
                }
            });
        });
    });
}

void writeFreeProperty(PatternWriter& patterns, const KindTable& table)
{
    patterns.define(anyProperty, [&] {
        patterns.element(QStringLiteral("Property"), [&] {
            patterns.attribute(QStringLiteral("name"), [&] {
                patterns.data("string", {{"pattern", something}});
            });
            patterns.ref(anyValue);
        });
    });
    patterns.define(anyValue, [&] {
        patterns.pattern("choice", [&] {
            for (const ValueType& type : table.valueTypes())
                patterns.element(type.name, [&] { writeText(patterns, type.name); });
        });
    });
}

QString classPattern(const ControlClass& controlClass)
{
    return QLatin1String("class.") + controlClass.name;
}

/** Classes of one kind differ in nothing but their name, so the first one's properties serve all. */
const ControlClass& representative(const KindTable& table, const ControlClass& controlClass)
{
    for (const ControlClass& other : table.classes()) {
        if (other.delegate == controlClass.delegate && other.needs == controlClass.needs)
            return other;
    }
    return controlClass;
}

void writeClasses(PatternWriter& patterns, const KindTable& table)
{
    for (const ControlClass& controlClass : table.classes()) {
        const ControlClass& first = representative(table, controlClass);
        if (&first == &controlClass)
            writeProperties(patterns, QLatin1String("property.") + controlClass.name,
                            controlClass.properties);
        patterns.define(classPattern(controlClass), [&] {
            patterns.documentation(controlClass.summary);
            patterns.attribute(QStringLiteral("class"), [&] { patterns.value(controlClass.name); });
            patterns.pattern("zeroOrMore", [&] {
                patterns.pattern("choice", [&] {
                    patterns.ref(QLatin1String("property.") + first.name);
                    patterns.ref(QStringLiteral("CustomProperties"));
                });
            });
        });
    }
}

/** An attribute that holds something, or one that may be missing. */
void writeAttribute(PatternWriter& patterns, const Attribute& attribute)
{
    const auto needed = [&] {
        patterns.attribute(attribute.name, [&] { patterns.data("string", {{"pattern", something}}); });
    };
    if (attribute.needed)
        needed();
    else
        patterns.pattern("optional", [&] { patterns.attribute(attribute.name, [&] { patterns.text(); }); });
}

/** How often @p child may stand in its parent; the parts of a choice stand exactly once. */
const char* repetition(const Element& child)
{
    static const QStringList once = {QStringLiteral("Sheet"), QStringLiteral("Script")};
    static const QStringList parts = {QStringLiteral("DisplayName"), QStringLiteral("EnumIdentifier"),
                                      QStringLiteral("Value")};
    if (parts.contains(child.name))
        return "group";
    return once.contains(child.name) ? "optional" : "zeroOrMore";
}

void writeChildren(PatternWriter& patterns, const KindTable& table, const Element& element)
{
    patterns.pattern("interleave", [&] {
        for (const QString& name : element.children) {
            const Element& child = *table.findElement(name);
            patterns.pattern(repetition(child), [&] { patterns.ref(name); });
        }
    });
}

void writeContent(PatternWriter& patterns, const KindTable& table, const Element& element)
{
    if (element.name == QLatin1String("Widget")) {
        patterns.pattern("choice", [&] {
            for (const ControlClass& controlClass : table.classes())
                patterns.ref(classPattern(controlClass));
        });
    } else if (element.name == QLatin1String("Properties")) {
        patterns.pattern("zeroOrMore", [&] { patterns.ref(QStringLiteral("property.sheet")); });
    } else if (element.name == QLatin1String("CustomProperties")) {
        patterns.pattern("zeroOrMore", [&] { patterns.ref(anyProperty); });
    } else if (element.holdsText) {
        patterns.text();
    } else {
        writeChildren(patterns, table, element);
    }
}

void writeElements(PatternWriter& patterns, const KindTable& table)
{
    for (const Element& element : table.elements()) {
        if (element.name == QLatin1String("Property"))
            continue; // what it may be depends on where it stands
        patterns.define(element.name, [&] {
            patterns.element(element.name, [&] {
                patterns.documentation(element.summary);
                for (const Attribute& attribute : element.attributes) {
                    // The class is told together with what it makes of the content.
                    if (attribute.name != QLatin1String("class"))
                        writeAttribute(patterns, attribute);
                }
                writeContent(patterns, table, element);
            });
        });
    }
}

} // namespace

QByteArray relaxNgSchema(const KindTable& table)
{
    QByteArray schema;
    PatternWriter patterns(&schema);
    QXmlStreamWriter& writer = patterns.writer();
    writer.writeStartDocument();
    writer.writeComment(QStringLiteral(" The form language. Made by \"zorva schema\". "));
    writer.writeStartElement(QStringLiteral("grammar"));
    writer.writeDefaultNamespace(QStringLiteral("http://relaxng.org/ns/structure/1.0"));
    writer.writeNamespace(QStringLiteral("http://relaxng.org/ns/compatibility/annotations/1.0"),
                          QStringLiteral("a"));
    writer.writeAttribute(QStringLiteral("datatypeLibrary"),
                          QStringLiteral("http://www.w3.org/2001/XMLSchema-datatypes"));
    patterns.pattern("start", [&] { patterns.ref(QStringLiteral("KVParamGui")); });
    writeElements(patterns, table);
    writeProperties(patterns, QStringLiteral("property.sheet"), table.sheet().properties);
    writeClasses(patterns, table);
    writeFreeProperty(patterns, table);
    writeTypes(patterns, table);
    writer.writeEndElement();
    writer.writeEndDocument();
    return schema;
}

} // namespace Author
} // namespace Orvane
