#ifndef ZORVA_AUTHOR_FORMROWS_H
#define ZORVA_AUTHOR_FORMROWS_H

#include <author/kinds/kindtable.h>

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>

namespace Orvane {

class ZorvaFormular;

namespace Author {

/**
 * Where the rows of a form stand in its parameter XML: the tree of groups and tags in which
 * the engine looks for the row of each element it reads.
 */
class FormRows
{
public:
    /** @p form is to be fresh from the parser: what its script does to tags later moves no row. */
    explicit FormRows(ZorvaFormular& form);

    /** What an element with that name stands for, below the groups above it. */
    struct Place
    {
        bool isKnown = false;
        int row = -1;  // position in the sheet; -1 for a group
        int group = 0; // to go on with, if it is a group
    };
    /** Looks for @p tag in the group @p group; the root is 0. */
    Place find(int group, const QString& tag) const;

    /** Name of the root element. */
    const QString& rootTag() const { return m_rootTag; }
    /** What the row at that position is; the kind of an unknown class for -1. */
    const ControlClass& kind(int row) const;
    int count() const { return m_kinds.size(); }

private:
    struct Node
    {
        int row = -1;
        QHash<QString, int> children; // the first one that has the tag
    };

    void add(const QStringList& groups, const QStringList& tags, int row);
    int append(int parent, const QStringList& tags, int row);

    QString m_rootTag;
    QVector<Node> m_nodes;
    QVector<const ControlClass*> m_kinds; // those of the one table
};

} // namespace Author
} // namespace Orvane

#endif
