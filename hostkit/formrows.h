#ifndef ZORVA_HOSTKIT_FORMROWS_H
#define ZORVA_HOSTKIT_FORMROWS_H

#include <hostkit/hostkit_export.h>
#include <zorvaparser/zorvaformular.h>

#include <QString>
#include <QStringList>

namespace hostkit {

/** Whether a row stands for a parameter: headlines, lines and gaps do not. */
HOSTKIT_EXPORT bool holdsParameter(Orvane::ZorvaWidget& row);

/** Paths in parameter XML of all rows that hold something, in their order; see holdsParameter().
 */
HOSTKIT_EXPORT QStringList rowPaths(Orvane::ZorvaFormular& form);

/** The row that @p parameter belongs to: its own, or that of the list or range it is a part of; null if there
 * is none. */
HOSTKIT_EXPORT Orvane::ZorvaSheet::WidgetPointer rowOf(Orvane::ZorvaFormular& form, const QString& parameter);

/** The text of @p parameter as its row shows it: numbers within the row's limits. Null if it has no row or no
 * text. */
HOSTKIT_EXPORT QString shownText(Orvane::ZorvaFormular& form, const QString& parameter);

/** Whether two texts of a parameter say the same: "5" and "5.0" do. Whole numbers, such as hertz, are
 * compared exactly; fractions may differ by what calculating with them costs. */
HOSTKIT_EXPORT bool saysTheSame(const QString& left, const QString& right);

/** The caption of a row as the operator reads it, else its tag. */
HOSTKIT_EXPORT QString captionOf(Orvane::ZorvaWidget& row);
/** The title of the group in which the row of @p parameter stands; empty outside of groups. */
HOSTKIT_EXPORT QString groupOf(Orvane::ZorvaFormular& form, const QString& parameter);
/** @p text in the operator's words: a choice by its name, a number with its unit. The text itself without a
 * row. */
HOSTKIT_EXPORT QString wordsOf(Orvane::ZorvaFormular& form, const QString& parameter, const QString& text);

} // namespace hostkit

#endif
