#ifndef ZORVA_SHELL_COMMANDLINE_H
#define ZORVA_SHELL_COMMANDLINE_H

#include <QString>
#include <QStringList>

/** What a person asked for when starting the program. */
struct CommandLine
{
    enum class Request { Show, Help, Version, Mistake };

    Request request = Request::Show;
    QString path;    // as typed
    QString option;  // empty or "debug"
    QString mistake; // for the person, if the request is one

    QStringList overlays;           // files, in the order in which they are laid over the form
    QStringList parameters;         // files, in the order in which they are taken
    QString settings;               // file; empty: the module's own choice
    QString language;               // as in "de" or "de_CH"; empty: that of the session
    QStringList translationFolders; // the last one is looked into first
    bool fresh = false;             // stored parameters are not read
    bool watch = false;             // the form is read again when its file changes
};

/**
 * Reads the command line; the program comes first. Options that belong to Qt's
 * application ("-platform offscreen") are passed over with their values. A value
 * stands behind its option, or in the same argument behind "=".
 */
CommandLine readCommandLine(const QStringList& arguments);

/** How the program is called, ready to print. */
QString usageText();

/** Why the file at @p path cannot be shown, for the person; empty if it can be read. */
QString whyUnreadable(const QString& path);

/** True for the name of a single form, false for that of a component list. */
bool namesForm(const QString& path);

#endif
