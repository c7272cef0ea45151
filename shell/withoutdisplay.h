#ifndef ZORVA_SHELL_WITHOUTDISPLAY_H
#define ZORVA_SHELL_WITHOUTDISPLAY_H

/**
 * Lets the application that is made next need no display: its windows are not seen, and
 * it has neither the desktop's theme nor its style, which would look for one themselves.
 */
void leaveDisplay();

#endif
