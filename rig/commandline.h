#ifndef ZORVA_RIG_COMMANDLINE_H
#define ZORVA_RIG_COMMANDLINE_H

#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>

namespace radio {

/** What the program is asked to do. */
struct CommandLine
{
    enum Task { Operate, List, WriteForm, Save, Help, Version };

    Task task = Operate;
    QString pattern;    ///< of --list
    QString output;     ///< of --form and --save; "-" is standard output
    unsigned model = 0; ///< 0: not given
    QString device;
    QList<QPair<QString, QString>> settings; ///< of --set
    QString rigctld;                         ///< host and port; empty for a radio of this computer
    QString restore;                         ///< a file of settings to be reviewed
    QString form;                            ///< a description to be used in place of the made one

    /** False, with @p error in words, if the arguments make no sense. The program's name comes first. */
    static bool parse(const QStringList& arguments, CommandLine* result, QString* error);
    static QString help();
};

} // namespace radio

#endif
