#ifndef ZORVA_WATCHDOG_H
#define ZORVA_WATCHDOG_H

/**
 * Ends the program with the code for misuse once it has used so many seconds of
 * processor time: the script of a form may never end. @p message is said then.
 */
void boundProcessorTime(int seconds, const char* message);

#endif
