#ifndef ZORVASHAREDPROPERTIES_P_H
#define ZORVASHAREDPROPERTIES_P_H

#include <QString>

class QByteArray;
class QObject;

namespace Orvane {

// Rows have most names of their properties, and many texts of them, in common. Qt copies a name
// for each object, and each look-up walks the object's names: in one place for all rows they
// stay in the processor's cache, and no row carries copies.

/** Lets the names of the properties that were added to @p row be the bytes that other rows have for them. */
void sharePropertyNames(const QObject& row);

/** QString::fromLatin1(), without a copy of a name that rows share. */
QString propertyNameText(const QByteArray& name);

/** @p text, or the equal one that the property @p name of an earlier row has. */
QString sharedPropertyText(const QByteArray& name, const QString& text);

} // namespace Orvane

#endif
