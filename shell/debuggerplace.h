#ifndef ZORVA_SHELL_DEBUGGERPLACE_H
#define ZORVA_SHELL_DEBUGGERPLACE_H

/**
 * Size and place of the script debugger, from one run of the program to the next:
 * the library keeps them in a property of the application, this in the user's
 * settings. One at a time, around everything that shows forms.
 */
class DebuggerPlace
{
public:
    DebuggerPlace();
    DebuggerPlace(const DebuggerPlace&) = delete;
    DebuggerPlace& operator=(const DebuggerPlace&) = delete;
    ~DebuggerPlace();
};

#endif
