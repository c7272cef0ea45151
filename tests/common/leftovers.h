#ifndef ZORVA_TESTS_LEFTOVERS_H
#define ZORVA_TESTS_LEFTOVERS_H

#include <QString>

/// Names what a test left behind in the process: values in the tree and
/// top-level widgets. Empty if there is nothing, so that a `cleanup()` reads
/// `QCOMPARE(leftovers(), QString())`. Carries out deletions that are due.
QString leftovers();

#endif
