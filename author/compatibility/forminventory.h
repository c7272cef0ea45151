#ifndef ZORVA_AUTHOR_FORMINVENTORY_H
#define ZORVA_AUTHOR_FORMINVENTORY_H

#include <author/kinds/kindtable.h>

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

namespace Orvane {
namespace Author {

/** One entry of an enumeration. */
struct InventoryChoice
{
    QString shown;
    QString identifier;
    QString value;
};

struct InventoryEnumeration
{
    QVector<InventoryChoice> choices;
    int line = 0;
};

/** What stored parameters, hosts and scripts can rely on in one row, after the form has come up. */
struct InventoryRow
{
    QString name;
    QString className;
    const ControlClass* kind = nullptr; // of the one table
    int line = 0;                       // in the description
    QString path;                       // in parameter XML, with the tags of several elements
    bool sent = false;                  // writes parameters
    QString defaults;                   // the texts that it writes when the form comes up
    std::optional<double> minimum;
    std::optional<double> maximum;
    QString unit;
    QString scale; // all that stands between a number and what is shown of it
    int decimals = 0;
    QString states;          // texts of a check box
    QMap<QString, int> room; // by property: how many items, columns, letters there are
    QString enumeration;
};

/** One form as others rely on it. */
class FormInventory
{
public:
    /** @p stored is the file of a description. */
    explicit FormInventory(const QByteArray& stored);

    /** False if it makes no form: then there is nothing else. */
    bool exists() const { return m_exists; }
    const QVector<InventoryRow>& rows() const { return m_rows; }
    const QMap<QString, InventoryEnumeration>& enumerations() const { return m_enumerations; }
    /** What scripts find: rows, enumerations, the sheet, and what the form's own script declares. */
    const QStringList& globals() const { return m_globals; }
    const QString& rootTag() const { return m_rootTag; }
    const QString& sheetName() const { return m_sheetName; }

private:
    bool m_exists = false;
    QVector<InventoryRow> m_rows;
    QMap<QString, InventoryEnumeration> m_enumerations;
    QStringList m_globals;
    QString m_rootTag;
    QString m_sheetName;
};

} // namespace Author
} // namespace Orvane

#endif
