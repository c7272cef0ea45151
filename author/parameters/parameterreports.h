#ifndef ZORVA_AUTHOR_PARAMETERREPORTS_H
#define ZORVA_AUTHOR_PARAMETERREPORTS_H

#include "differences.h"
#include "merge.h"

#include <QByteArray>
#include <QString>

namespace Orvane {
namespace Author {

// Each for people, and as JSON for programs.

/** Setting by setting in the operator's words. */
QString explanationText(const SettingsForm& form, const ParameterSet& set);
QByteArray explanationJson(const SettingsForm& form, const ParameterSet& set); ///< Likewise.

/** One line for each difference, and a last one that counts; what is equal only if @p all. */
QString differencesText(const QVector<Difference>& differences, bool all);
/** All of them, the equal ones too. */
QByteArray differencesJson(const QVector<Difference>& differences);

/** The conflicts alone. */
QString conflictsText(const QVector<Conflict>& conflicts);
QByteArray conflictsJson(const QVector<Conflict>& conflicts); ///< Likewise.

} // namespace Author
} // namespace Orvane

#endif
