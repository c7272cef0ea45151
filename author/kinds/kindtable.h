#ifndef ZORVA_AUTHOR_KINDTABLE_H
#define ZORVA_AUTHOR_KINDTABLE_H

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

namespace Orvane {
namespace Author {

/** One argument of a signal, slot or invokable; the type is spelled as in the meta-object. */
struct Argument
{
    QString name;
    QString type;
};

/** What a script finds on a row: a signal to connect to, a slot or an invokable to call. */
struct Method
{
    enum Kind { Signal, Slot, Invokable };

    Kind kind = Signal;
    QString name;
    QString returns; // type as in the meta-object, "void" for none
    QList<Argument> arguments;
    QString effect;
    bool inert = false; // a signal that never comes, a slot that does nothing

    /** As the meta-object writes it: "setRange(qlonglong,qlonglong)". */
    QString signature() const;
    /** As a person reads it, with the names of the arguments: "setRange(start, stop)". */
    QString call() const;
};

/** One property of a row or of the sheet, plain or custom. */
struct Property
{
    QString name;        // one that ends in '*' stands for every name that begins so
    QString type;        // the element that holds its text: one of KindTable::valueTypes()
    QString fallback;    // the text that would do the same as its absence; empty if none does
    QString absent;      // the same in words
    QString unit;        // of its number, empty if it has none
    QString range;       // in words; empty if every text of the type is sensible
    QStringList choices; // all texts that mean something; empty if any does
    /**
     * What its text names: "enumeration", "entry" (a Value of the row's enumeration),
     * "element" (an element of parameter XML), "path" (elements with slashes); else empty.
     */
    QString refers;
    QStringList needs;       // properties without which it does nothing
    QString effect;          // one sentence; Markdown code marks around names
    bool translated = false; // the user sees it, in his language
    bool inert = false;      // kept on the row for scripts and hosts; changes nothing by itself
    bool late = false;       // does nothing in the form as it comes up, but lets later changes through
    bool shared = false;     // one of those that all rows have

    bool isNumber() const;
};

/** What a row is in parameter XML. */
struct ParameterElement
{
    /** None writes nothing, Leaf one element, Pair two, List and Ranges one with items in it. */
    enum Form { None, Leaf, Pair, List, Ranges };

    Form form = None;
    QString text; // what stands in it, in words
    QString example;
    bool hasUnit = false; // the property "unit" is written as attribute
};

/** A value of the attribute "class", or the sheet: what it understands and what it does. */
struct ControlClass
{
    /**
     * What the user sees of it: nothing beside a caption, a piece of layout, the head of
     * a group, something to look at, to press, to enter something into.
     */
    enum Control { NoControl, Layout, Headline, Display, Button, Input };

    QString name;
    QString summary;  // one sentence
    QString delegate; // the class of the script object, without its namespace
    QString section;  // heading on the page of control kinds
    Control control = NoControl;
    QStringList needs;          // properties that a row of this class cannot sensibly be without
    QList<Property> properties; // its own first, then those that all rows have
    QList<Property> customProperties;
    QList<Method> methods; // those of all rows first; in the order of the meta-object
    int sharedMethods = 0; // how many of them all rows have
    ParameterElement parameter;

    /** Null if the class does not know the name. A name beginning as a property with '*' finds it. */
    const Property* findProperty(const QString& propertyName) const;
    /** Likewise among those in "CustomProperties". */
    const Property* findCustomProperty(const QString& propertyName) const;
    /** Overloads of one name, what all rows have included; empty if there is none. */
    QList<const Method*> findMethods(const QString& methodName) const;
    /** True if the user enters something that could be exported. */
    bool isInput() const { return control == Input; }
    bool isExported() const { return parameter.form != ParameterElement::None; }
};

/** One attribute of an element of the language. */
struct Attribute
{
    QString name;
    QString absent; // what its absence means, in words
    QString effect;
    bool needed = false; // a description is hardly sensible without it
};

/** One element of the language. The type elements below "Property" are valueTypes(). */
struct Element
{
    QString name;
    QString summary;
    QStringList parents;  // empty for the root
    QStringList children; // for "Property" one "*": any of the type elements
    QList<Attribute> attributes;
    bool holdsText = false; // text and nothing else

    /** Null if the element does not know the name. */
    const Attribute* findAttribute(const QString& attributeName) const;
};

/** A type element: what is written around the text of a property. */
struct ValueType
{
    QString name;
    QString text; // what may stand in it, in words
    QString summary;
};

/** A function of the script language, or of every object in it. */
struct ScriptFunction
{
    QString name;
    QStringList arguments;
    QString effect;
};

/** A replacement that the text of "Script" undergoes before it runs. */
struct ScriptEscape
{
    QString text;
    QString becomes;
};

/** What a script finds before any row, enumeration or sheet adds its own global. */
struct ScriptLanguage
{
    QList<ScriptEscape> escapes;
    QList<ScriptFunction> functions;
    QStringList constructors;
    QStringList objects;
    QStringList constants;
    QStringList words;                   // reserved: no identifier
    QList<ScriptFunction> members;       // of every row's object, beside its methods and properties
    QList<ScriptFunction> signalMembers; // of every signal

    /** Every name that a row, an enumeration or the sheet could hide. */
    QStringList globals() const;
};

/** The names of classes, properties, attributes and so on, in their order. */
template <typename Named>
QStringList namesOf(const QList<Named>& all)
{
    QStringList names;
    names.reserve(all.size());
    for (const Named& one : all)
        names.append(one.name);
    return names;
}

/**
 * The one table of the language, read from kinds.json: every class, property, signal,
 * slot and element with what it does. Nothing in it changes after the first use; all
 * pointers that its functions give stay good to the end of the program.
 */
class KindTable
{
public:
    static const KindTable& instance();

    /** Every class of the engine, in the order of the table. */
    const QList<ControlClass>& classes() const { return m_classes; }
    /** Exact, with case; null if no such class is known. */
    const ControlClass* findClass(const QString& name) const;
    /** What a row is whose class is not known: a caption. Its name is empty. */
    const ControlClass& unknownClass() const { return m_unknownClass; }
    /** The sheet as its script object and its properties show it. Its name is empty. */
    const ControlClass& sheet() const { return m_sheet; }

    const QList<Element>& elements() const { return m_elements; }
    /** By local name, exact; null if the language does not know it. Type elements are no elements here. */
    const Element* findElement(const QString& name) const;
    const QList<ValueType>& valueTypes() const { return m_valueTypes; }
    bool isValueType(const QString& name) const;

    /** True for a property name that the engine uses for itself. */
    bool isReservedProperty(const QString& name) const;

    const ScriptLanguage& script() const { return m_script; }

    KindTable(const KindTable&) = delete;
    KindTable& operator=(const KindTable&) = delete;

private:
    KindTable();
    ~KindTable() = default;

    QList<ControlClass> m_classes;
    QHash<QString, int> m_classIndex;
    ControlClass m_unknownClass;
    ControlClass m_sheet;
    QList<Element> m_elements;
    QList<ValueType> m_valueTypes;
    QStringList m_reservedPrefixes;
    QStringList m_reservedNames;
    ScriptLanguage m_script;
};

} // namespace Author
} // namespace Orvane

#endif
