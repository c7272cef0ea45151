#ifndef ZORVA_AUTHOR_WRITTENROW_H
#define ZORVA_AUTHOR_WRITTENROW_H

#include <author/document/description.h>
#include <author/kinds/kindtable.h>

#include <QHash>
#include <QPair>
#include <QSet>

#include <optional>

namespace Orvane {
namespace Author {

/** One property as it is written; the last one of its name. */
struct WrittenProperty
{
    int element = -1;
    int type = -1; // its type element; -1 if there is none
    QString name;
    QString typeName;
    QString text;
    bool isCustom = false;

    /** The number that the engine makes of the text; empty if it makes none. */
    std::optional<double> number() const;
    bool isTrue() const;
};

/** A row, or the sheet, with its properties by name, as its author wrote it. */
class WrittenRow
{
public:
    /** @p element is a "Widget" or a "Sheet". */
    WrittenRow(const Description& description, int element);

    int element() const { return m_element; }
    const QString& name() const { return m_name; }
    const QString& className() const { return m_className; }
    /** What the class is; that of an unknown class for one that there is not. */
    const ControlClass& kind() const { return *m_kind; }
    bool isKnown() const { return m_isKnown; }

    /** Null if the row does not have it. */
    const WrittenProperty* find(const char* name) const;
    const WrittenProperty* find(const QString& name) const;
    const WrittenProperty* findCustom(const QString& name) const;
    bool isTrue(const char* name) const;
    QString text(const char* name) const;
    double number(const char* name, double fallback) const;
    /** All that are written, those that a later one replaces included. */
    const QVector<WrittenProperty>& all() const { return m_all; }
    /** The path in parameter XML, from the row's name where nothing else is said. */
    QString path() const;
    /** The tag of those kinds that take theirs from custom properties and have one of their own; else empty.
     */
    QString ownTag() const;
    /** The last block of custom properties; -1 if there is none. */
    int customBlock() const { return m_customBlock; }
    bool isExported() const;

private:
    void readBlock(const Description& description, int block, bool isCustom, int depth = 0);

    int m_element;
    QString m_name;
    QString m_className;
    const ControlClass* m_kind = nullptr;
    bool m_isKnown = false;
    int m_customBlock = -1;
    QVector<WrittenProperty> m_all;
    QHash<QString, int> m_plain;
    QHash<QString, int> m_custom;
};

/** All rows of a description, and what its scripts speak of. */
class WrittenForm
{
public:
    explicit WrittenForm(const Description& description);

    const QVector<WrittenRow>& rows() const { return m_rows; }
    const QVector<WrittenRow>& sheets() const { return m_sheets; }
    /** True if a script uses the word, also as a member or in a text; not as a function's own variable. */
    bool scriptMentions(const QString& word) const { return m_words.contains(word); }
    /** True if a script calls the setter of that property, or assigns it, and speaks of the row. */
    bool scriptSets(const WrittenRow& row, const QString& property) const;

private:
    void readScript(const QString& code);
    void readWords(const QString& text);

    QVector<WrittenRow> m_rows;
    QVector<WrittenRow> m_sheets;
    QSet<QString> m_words;
    QSet<QPair<QString, QString>> m_members; // what scripts ask globals for
};

} // namespace Author
} // namespace Orvane

#endif
