#ifndef ZORVA_SHELL_SHELLMODULE_H
#define ZORVA_SHELL_SHELLMODULE_H

#include <zorvaparser/formshell_p.h>
#include <zorvaparser/loadinterface.h>

#include <QLibrary>
#include <QString>

/**
 * The library, loaded as a module, and the instance made from it. The library
 * stays loaded until the process ends, for the windows it has made do too.
 */
class ShellModule
{
public:
    ShellModule() = default;
    ~ShellModule();
    ShellModule(const ShellModule&) = delete;
    ShellModule& operator=(const ShellModule&) = delete;

    /** Loads the library and makes the instance; the reason of a failure, otherwise empty. */
    QString Load();
    /** Only after a Load() without failure. */
    bool Start() { return instance->Start(); }
    /** What the instance offers beside that; null if it is that of another version. */
    Orvane::FormShell* Shell() const { return dynamic_cast<Orvane::FormShell*>(instance); }

private:
    using CreateFunction = IDllInstance* (*)(const wchar_t*);
    using DestroyFunction = void (*)(IDllInstance*);

    /** The reason of a failure, otherwise empty. */
    QString loadLibrary();

    QLibrary library;
    IDllInstance* instance = nullptr; // owned; goes back to the library
    DestroyFunction destroy = nullptr;
};

#endif
