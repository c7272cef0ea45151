#ifndef ZORVA_AUTHOR_COMPARISON_H
#define ZORVA_AUTHOR_COMPARISON_H

#include "forminventory.h"

#include <QByteArray>
#include <QString>
#include <QVector>

namespace Orvane {
namespace Author {

/** Something in which a new form differs from an old one, for those who rely on the old one. */
struct FormChange
{
    QString id;
    bool breaking = false; // stored parameters, hosts or scripts lose something
    QString name;          // of the row, the enumeration or the script's object
    QString message;
    int oldLine = 0; // in the descriptions; 0 if there is no such place
    int newLine = 0;
};

/** In the order of the old form, then what only the new one has. */
QVector<FormChange> compareForms(const FormInventory& oldForm, const FormInventory& newForm);

/** A line for each change, the place in the new form first, and one that counts. */
QString changesText(const QString& oldName, const QString& newName, const QVector<FormChange>& changes);
/** One object for programs. */
QByteArray changesJson(const QVector<FormChange>& changes);

} // namespace Author
} // namespace Orvane

#endif
