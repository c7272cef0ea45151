#ifndef ZORVA_SHELL_CONSOLE_H
#define ZORVA_SHELL_CONSOLE_H

#include <QString>

#include <cstdio>

/** The program's exit status beside 0. */
constexpr int nothingToShow = 1;
constexpr int wrongCommandLine = 2;

void print(FILE* stream, const QString& text);

/** Says on standard error what is wrong; gives back `nothingToShow`. */
int fail(const QString& message);

#endif
