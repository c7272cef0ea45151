#ifndef ZORVA_TERMINAL_H
#define ZORVA_TERMINAL_H

#include <QString>

/** Writes @p text to the standard output, in the encoding of the locale. */
void print(const QString& text);
/** Writes a document to the standard output, byte for byte; gives an exit code. */
int printBytes(const QByteArray& bytes);
/** True if the standard output is a terminal whose user has nothing against colours. */
bool mayBeColoured();
/** Writes "zorva: MESSAGE" and a line end to the standard error; gives the exit code for misuse. */
int fail(const QString& message);

#endif
