#ifndef ZORVA_SUBCOMMAND_H
#define ZORVA_SUBCOMMAND_H

#include <QStringList>

/** How the program ends; the same for every subcommand. */
enum ExitCode {
    Clean = 0,    // done, nothing to say against it
    Findings = 1, // done, and something is wrong with what was looked at
    Misuse = 2,   // wrong arguments, an unreadable file, nothing done
};

/** One word of the command line that says what to do; a constant in the file of its name. */
struct Subcommand
{
    /**
     * Core: no forms are made. Forms: an application without a screen is there for live forms.
     * Display: an application with windows for a person.
     */
    enum Needs { Core, Forms, Display };

    const char* name;
    const char* summary; // one line for the list
    const char* help;    // the whole text of --help, with the line of usage
    Needs needs;
    /** @p arguments follow the subcommand's own word; gives an ExitCode. "--help" never comes here. */
    int (*run)(const QStringList& arguments);
    /** Before there is an application; null for most. */
    void (*prepare)(const QStringList& arguments) = nullptr;
};

extern const Subcommand checkCommand;
extern const Subcommand compareCommand;
extern const Subcommand formatCommand;
extern const Subcommand kindsCommand;
extern const Subcommand manualCommand;
extern const Subcommand newCommand;
extern const Subcommand overlayCommand;
extern const Subcommand parametersCommand;
extern const Subcommand previewCommand;
extern const Subcommand schemaCommand;
extern const Subcommand serverCommand;
extern const Subcommand showCommand;
extern const Subcommand stringsCommand;
extern const Subcommand testCommand;
/** For the program itself: not in the list of subcommands. */
extern const Subcommand serveScriptsCommand;
extern const Subcommand serveTestsCommand;

#endif
