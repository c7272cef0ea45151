#ifndef ZORVA_TESTS_GENERATEDFORM_H
#define ZORVA_TESTS_GENERATEDFORM_H

#include <QString>
#include <QStringList>

/// A description with every kind of row that can be seen, in random order and
/// with random captions, limits and choices. The same seed gives the same text.
QString generatedForm(quint32 seed);

/// The styles that looks are tested in: "fusion" always, "breeze" and "adwaita"
/// where they are installed.
QStringList testedStyles();

#endif
