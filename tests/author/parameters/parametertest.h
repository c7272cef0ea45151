#ifndef ZORVA_TESTS_AUTHOR_PARAMETERTEST_H
#define ZORVA_TESTS_AUTHOR_PARAMETERTEST_H

#include <author/parameters/settingsform.h>

#include <QString>

/// A form with a row of each sort: a frequency, a choice, a state, numbers with and without
/// fractions, a text, a pair, a list, ranges, and one that is read and never sent.
QByteArray stationForm(const QString& script = QString());
/// Parameters of it with this inside the root.
QString stationParameters(const QString& content);

#endif
