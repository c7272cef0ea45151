#ifndef ZORVA_SHELL_DISPLAYCHECK_H
#define ZORVA_SHELL_DISPLAYCHECK_H

#include <QStringList>

/**
 * Qt ends the process when it finds no display to work on. While one of these
 * lives, that is a sentence and an exit status instead of a core dump. One at a time.
 */
class DisplayCheck
{
public:
    /** Says on standard error what is wrong; gives the exit status. */
    using Fail = int (*)(const QString& message);

    /** @p arguments are those that Qt's application gets, with the program's name. */
    DisplayCheck(const QStringList& arguments, Fail fail);
    ~DisplayCheck() { Pass(); }
    DisplayCheck(const DisplayCheck&) = delete;
    DisplayCheck& operator=(const DisplayCheck&) = delete;

    /** There is a display; what follows is not about it. */
    void Pass();
};

#endif
