#ifndef ZORVA_AUTHOR_AUTHOREDITOR_H
#define ZORVA_AUTHOR_AUTHOREDITOR_H

#include <QString>
#include <QStringList>

namespace Orvane {
namespace Author {

/** A program with its arguments. */
struct EditorCall
{
    QString program; // empty: nobody has said which
    QStringList arguments;
};

/**
 * How an editor is asked to show a place. @p command is what its user has set: a program with
 * options, in which %f, %l and %c stand for file, line and column. Without them the place is
 * given as that editor wants it, or as +LINE before the file. Line and column count from 1.
 */
EditorCall editorCall(const QString& command, const QString& file, int line, int column);

/** $ZORVA_EDITOR, else $VISUAL; empty if neither is set. */
QString editorOfUser();

/**
 * Shows a place of @p file in the user's editor, or the file in the desktop's. Gives why that
 * cannot be; empty if it can. Does not wait for it.
 */
QString openInEditor(const QString& file, int line, int column);

} // namespace Author
} // namespace Orvane

#endif
