#ifndef ZORVA_SHELL_DISPLAYCHECK_H
#define ZORVA_SHELL_DISPLAYCHECK_H

#include <QStringList>

/**
 * Qt ends the process when it finds no display to work on. While one of these
 * lives, that is a sentence and exit status 1 instead of a core dump. One at a time.
 */
class DisplayCheck
{
public:
    /** @p arguments are those that Qt's application gets. */
    explicit DisplayCheck(const QStringList& arguments);
    ~DisplayCheck() { Pass(); }
    DisplayCheck(const DisplayCheck&) = delete;
    DisplayCheck& operator=(const DisplayCheck&) = delete;

    /** There is a display; what follows is not about it. */
    void Pass();
};

#endif
