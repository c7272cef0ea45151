#include "authoreditor.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QProcess>
#include <QUrl>

namespace Orvane {
namespace Author {

namespace {

/** How editors that do not know +LINE take a place. */
const struct
{
    const char* name;
    const char* arguments;
} ways[] = {
    {"kate", "--line %l --column %c %f"},  {"kwrite", "--line %l --column %c %f"},
    {"code", "--goto %f:%l:%c"},           {"codium", "--goto %f:%l:%c"},
    {"qtcreator", "-client %f:%l:%c"},     {"subl", "%f:%l:%c"},
    {"geany", "--line %l --column %c %f"},
};

/** Editors that live in a terminal, of which a window has none. */
const char* const inTerminals[] = {"vi", "vim", "nvim", "nano", "joe", "micro", "mcedit", "ed"};

QStringList argumentsFor(const QString& name)
{
    for (const auto& way : ways) {
        if (name == QLatin1String(way.name))
            return QString::fromLatin1(way.arguments).split(QLatin1Char(' '));
    }
    return {QStringLiteral("+%l"), QStringLiteral("%f")};
}

bool livesInTerminal(const QString& name)
{
    for (const char* const other : inTerminals) {
        if (name == QLatin1String(other))
            return true;
    }
    return false;
}

/** A file name may hold what looks like a mark, so all are replaced in one go. */
QString filledIn(const QString& word, const QString& file, int line, int column)
{
    QString text;
    for (int i = 0; i < word.size(); ++i) {
        const QChar mark = word.at(i) == QLatin1Char('%') && i + 1 < word.size() ? word.at(i + 1) : QChar();
        if (mark == QLatin1Char('f'))
            text += file;
        else if (mark == QLatin1Char('l'))
            text += QString::number(line);
        else if (mark == QLatin1Char('c'))
            text += QString::number(column);
        else if (mark == QLatin1Char('%'))
            text += mark;
        else {
            text += word.at(i);
            continue;
        }
        ++i;
    }
    return text;
}

} // namespace

EditorCall editorCall(const QString& command, const QString& file, int line, int column)
{
    QStringList words = QProcess::splitCommand(command);
    if (words.isEmpty())
        return EditorCall();
    const QString name = QFileInfo(words.first()).fileName();
    if (!command.contains(QLatin1String("%f")))
        words += argumentsFor(name);
    for (int i = 1; i < words.size(); ++i)
        words[i] = filledIn(words.at(i), file, line, column);
    if (livesInTerminal(name))
        words = QStringList{QStringLiteral("x-terminal-emulator"), QStringLiteral("-e")} + words;
    return {words.takeFirst(), words};
}

QString editorOfUser()
{
    const QString own = qEnvironmentVariable("ZORVA_EDITOR");
    return own.isEmpty() ? qEnvironmentVariable("VISUAL") : own;
}

QString openInEditor(const QString& file, int line, int column)
{
    const QString path = QFileInfo(file).absoluteFilePath();
    const EditorCall call = editorCall(editorOfUser(), path, line, column);
    if (call.program.isEmpty()) {
        return QDesktopServices::openUrl(QUrl::fromLocalFile(path))
                   ? QString()
                   : QStringLiteral("the desktop has no editor for it; set ZORVA_EDITOR to one");
    }
    return QProcess::startDetached(call.program, call.arguments)
               ? QString()
               : QStringLiteral("%1 does not start").arg(call.program);
}

} // namespace Author
} // namespace Orvane
