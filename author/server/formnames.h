#ifndef ZORVA_AUTHOR_FORMNAMES_H
#define ZORVA_AUTHOR_FORMNAMES_H

#include <author/check/writtenrow.h>

#include <QVector>

namespace Orvane {
namespace Author {

/** Something with a name that is written in more than one place. */
struct NamedThing
{
    enum Kind {
        Nothing,
        Row,
        Sheet,
        Enumeration,
        Identifier, // of an entry of the enumeration `owner`
        Entry,      // a Value of the enumeration `owner`
        Variable    // or function or argument of the script; `owner` says which function's
    };

    Kind kind = Nothing;
    QString name;
    QString owner;

    bool operator==(const NamedThing& other) const
    {
        return kind == other.kind && name == other.name && owner == other.owner;
    }
};

/** One place where a name is written. */
struct NameUse
{
    enum Where { Description, Path, Code };

    NamedThing thing;
    Range range; // of the name alone
    Where where = Description;
    bool isDefinition = false;
    int script = -1; // of a use in code: the element, and the token in it
    int token = -1;
};

/** Every name of a description with all its uses, in the script and in paths, too. */
class FormNames
{
public:
    /** @p description must live as long as this. */
    explicit FormNames(const Description& description);
    FormNames(const FormNames&) = delete;
    FormNames& operator=(const FormNames&) = delete;

    const WrittenForm& form() const { return m_form; }
    const QVector<NameUse>& uses() const { return m_uses; }
    /** The use that @p offset is in, or stands at the end of; null if there is none. */
    const NameUse* useAt(int offset) const;
    QVector<NameUse> usesOf(const NamedThing& thing) const;
    QVector<NameUse> definitionsOf(const NamedThing& thing) const;
    /** The row or sheet that has the name; null if none has. */
    const WrittenRow* findObject(const QString& name) const;

private:
    void add(const NamedThing& thing, Range range, bool isDefinition,
             NameUse::Where where = NameUse::Description);
    void readRows();
    void readProperties(const WrittenRow& row);
    void readPath(const WrittenProperty& property);
    void readEnumerations();
    void readScript(int script);
    NamedThing globalThing(const QString& name) const;

    const Description& m_description; // not owned
    const WrittenForm m_form;
    QHash<QString, const WrittenRow*> m_objects;
    QHash<QString, NamedThing::Kind> m_globals;
    QVector<NameUse> m_uses;
};

} // namespace Author
} // namespace Orvane

#endif
