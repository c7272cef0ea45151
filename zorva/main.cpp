#include "subcommand.h"
#include "terminal.h"

#include <shell/displaycheck.h>
#include <shell/withoutdisplay.h>

#include <QApplication>

#include <clocale>

namespace {

const Subcommand* const subcommands[] = {
    &checkCommand,  &compareCommand, &formatCommand,     &kindsCommand,   &manualCommand,
    &newCommand,    &overlayCommand, &parametersCommand, &previewCommand, &schemaCommand,
    &serverCommand, &showCommand,    &stringsCommand,    &testCommand,
};
/** For the program itself. */
const Subcommand* const services[] = {&serveScriptsCommand, &serveTestsCommand};

QString overview()
{
    QString text = QStringLiteral("Usage: zorva SUBCOMMAND [ARGUMENT...]\n"
                                  "Tools for those who write forms.\n\n"
                                  "Subcommands:\n");
    for (const Subcommand* command : subcommands)
        text += QStringLiteral("  %1  %2\n")
                    .arg(QLatin1String(command->name), -10)
                    .arg(QLatin1String(command->summary));
    return text + QStringLiteral("\nOptions:\n"
                                 "  -h, --help     this text; behind a subcommand, the text about it\n"
                                 "  -v, --version  the version\n\n"
                                 "Ends with 0 if all is well, 1 if there are findings, 2 if it could not do\n"
                                 "what was asked.\n");
}

const Subcommand* find(const QString& name)
{
    for (const Subcommand* command : subcommands) {
        if (name == QLatin1String(command->name))
            return command;
    }
    for (const Subcommand* command : services) {
        if (name == QLatin1String(command->name))
            return command;
    }
    return nullptr;
}

int failWithNames(const QString& message)
{
    QStringList names;
    for (const Subcommand* command : subcommands)
        names.append(QLatin1String(command->name));
    return fail(
        QStringLiteral("%1; there is: %2 (and --help)").arg(message, names.join(QLatin1String(", "))));
}

bool asksForHelp(const QStringList& arguments)
{
    const QStringList options = arguments.mid(0, arguments.indexOf(QStringLiteral("--")));
    return options.contains(QLatin1String("--help")) || options.contains(QLatin1String("-h"));
}

int runOnDisplay(const Subcommand& command, const QStringList& arguments, int argc, char** argv)
{
    DisplayCheck check(QStringList(QString::fromLocal8Bit(argv[0])) + arguments, fail);
    const QApplication application(argc, argv);
    check.Pass();
    return command.run(arguments);
}

int runCommand(const Subcommand& command, const QStringList& arguments, int argc, char** argv)
{
    if (asksForHelp(arguments)) {
        print(QString::fromUtf8(command.help));
        return Clean;
    }
    if (command.prepare)
        command.prepare(arguments);
    if (command.needs == Subcommand::Core) {
        const QCoreApplication application(argc, argv);
        return command.run(arguments);
    }
    if (command.needs == Subcommand::Display)
        return runOnDisplay(command, arguments, argc, argv);
    // Forms are made to be looked at by the program alone, so it asks for no display.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        leaveDisplay();
    const QApplication application(argc, argv);
    return command.run(arguments);
}

QStringList argumentList(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    return arguments;
}

} // namespace

int main(int argc, char** argv)
{
    // File names are decoded before an application object sets this.
    std::setlocale(LC_ALL, "");
    const QStringList arguments = argumentList(argc, argv);
    if (arguments.isEmpty())
        return failWithNames(QStringLiteral("no subcommand given"));
    const QString& word = arguments.first();
    if (word == QLatin1String("--help") || word == QLatin1String("-h")) {
        print(overview());
        return Clean;
    }
    if (word == QLatin1String("--version") || word == QLatin1String("-v")) {
        print(QStringLiteral("zorva " ZORVA_VERSION "\n"));
        return Clean;
    }
    const Subcommand* const command = find(word);
    if (!command)
        return failWithNames(QStringLiteral("unknown subcommand \"%1\"").arg(word));
    return runCommand(*command, arguments.mid(1), argc, argv);
}
