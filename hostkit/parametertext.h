#ifndef ZORVA_HOSTKIT_PARAMETERTEXT_H
#define ZORVA_HOSTKIT_PARAMETERTEXT_H

#include <hostkit/hostkit_export.h>

#include <QList>
#include <QString>

namespace hostkit {

/**
 * One leaf of parameter XML. Its path has a "/" between the groups and the leaf;
 * one of several items of a list ends in its index, as in "shifts/Shift[2]".
 */
struct Parameter
{
    QString path; ///< without a leading "/"
    QString text; ///< as it stands, without the escapes of XML
};

/** The leaves of @p xml in their order, without the root; what is damaged ends the list. */
HOSTKIT_EXPORT QList<Parameter> parametersOf(const QString& xml);

/**
 * Parameter XML of @p parameters in their order, below the root of @p emptyRoot: what
 * ZorvaFormular::GetEmptyXmlElement() gives, with its attributes. Parameters that
 * follow each other share their groups.
 */
HOSTKIT_EXPORT QString parameterXml(const QString& emptyRoot, const QList<Parameter>& parameters);

} // namespace hostkit

#endif
