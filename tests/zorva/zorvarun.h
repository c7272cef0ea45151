#ifndef ZORVA_TESTS_ZORVARUN_H
#define ZORVA_TESTS_ZORVARUN_H

#include <QByteArray>
#include <QString>
#include <QStringList>

/// What one run of a program left behind; code -1 if it did not end by itself.
struct ZorvaRun
{
    int code = -1;
    QString output;
    QString errors;
};

/// Runs zorva in a folder (the test's own if null) with bytes on its standard input.
ZorvaRun runZorva(const QStringList& arguments, const QByteArray& input = QByteArray(),
                  const QString& folder = QString());
/// The same for any program.
ZorvaRun runProgram(const QString& program, const QStringList& arguments,
                    const QByteArray& input = QByteArray(), const QString& folder = QString());

#endif
