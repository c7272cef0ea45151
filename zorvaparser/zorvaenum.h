#ifndef ZORVAENUM_H
#define ZORVAENUM_H

#include <zorvaparser/zorvaparser_export.h>

#include <QHash>
#include <QList>
#include <QSharedData>
#include <QString>

class QXmlStreamReader;

namespace Orvane {

/** One choice of an enumeration: its name for the user, for scripts, and its value text. */
class ZORVAPARSER_EXPORT ZorvaEnumValue
{
public:
    ZorvaEnumValue() = default;
    /** The three faces of a choice, as written in the description. */
    ZorvaEnumValue(const QString& displayName, const QString& enumIdentifier, const QString& value);
    ZorvaEnumValue(const ZorvaEnumValue&) = default;            ///< Likewise.
    ZorvaEnumValue& operator=(const ZorvaEnumValue&) = default; ///< Likewise.
    virtual ~ZorvaEnumValue() = default;

    /** Entered on the start tag of "EnumValue". Missing children leave empty texts. */
    void ParseZORVA(QXmlStreamReader& reader);

    /** What the user reads, what a script writes, what parameter XML carries. */
    const QString& GetDisplayName() const { return displayName; }
    const QString& GetEnumIdentifier() const { return enumIdentifier; } ///< Likewise.
    const QString& GetValue() const { return value; }                   ///< Likewise.
    /** The value as a number; @p defaultValue if the text is none. */
    double GetDoubleValue(double defaultValue) const;

private:
    void SetValue(const QString& text);

    QString displayName;
    QString enumIdentifier;
    QString value;
    // What the value text reads as: each row of the enumeration asks for every one.
    double number = 0.0;
    bool isNumber = false;
};

/** A named list of choices, in document order; shared between the formular and its rows. */
class ZORVAPARSER_EXPORT ZorvaEnum : public QSharedData
{
public:
    ZorvaEnum() = default;
    /** An enumeration without choices. */
    explicit ZorvaEnum(const QString& name);
    ZorvaEnum(const ZorvaEnum&) = default; ///< Likewise.
    ZorvaEnum& operator=(const ZorvaEnum&) = delete;
    virtual ~ZorvaEnum() = default;

    /** Entered on the start tag of "Enum"; appends to the list. */
    void ParseZORVA(QXmlStreamReader& reader);
    /** No check for duplicates. */
    void AppendEnumValue(const QString& displayName, const QString& enumIdentifier, const QString& value);
    /** Removes all choices; nobody is told. */
    void ClearValues();

    /** The name in the description, and how many choices there are. */
    const QString& GetName() const { return name; }
    int GetValueCount() const { return values.count(); } ///< Likewise.
    /** A value of three empty texts if @p index is out of range. */
    const ZorvaEnumValue& GetValueAt(int index) const;
    /** Lowest index with that display name or value text, compared exactly; -1 if none. */
    int firstIndexOfName(const QString& displayName) const;
    /** The position of the first choice with exactly that Value; -1 if there is none. */
    int firstIndexOfValue(const QString& valueText) const;
    /** A miss yields the first entry, or the empty value of an empty list. */
    const ZorvaEnumValue& FindName(const QString& displayName) const;
    /** Likewise; @p found, which may be null, tells a hit from a miss. */
    const ZorvaEnumValue& FindValue(const QString& valueText, bool* found) const;

private:
    void Append(const ZorvaEnumValue& entry);

    QString name;
    QList<ZorvaEnumValue> values;
    ZorvaEnumValue emptyValue;
    // First index of each text, so that a lookup does not walk the list.
    QHash<QString, int> indexByName;
    QHash<QString, int> indexByValue;
};

} // namespace Orvane

#endif
