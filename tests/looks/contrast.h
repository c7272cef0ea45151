#ifndef ZORVA_TESTS_CONTRAST_H
#define ZORVA_TESTS_CONTRAST_H

#include <QRgb>

/// How well two colours can be told apart, from 1 (not at all) to 21 (black on
/// white), as accessibility guidelines for the web count it.
double contrast(QRgb a, QRgb b);

#endif
