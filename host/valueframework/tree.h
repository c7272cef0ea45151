#ifndef ZORVA_VALUEFRAMEWORK_TREE_H
#define ZORVA_VALUEFRAMEWORK_TREE_H

#include <valueframework/valuebase.h>
#include <valueframework/valueframework_export.h>
#include <vkbase/observable.h>

#include <QHash>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

namespace values {

/// The process-wide tree of values. In paths a leading "/" is optional, doubled
/// and trailing ones are ignored, and case counts. Nodes come with their first
/// value and go with their last; a node and a value may share a path.
class VALUEFRAMEWORK_EXPORT Tree
{
public:
    /// Made on first use and never destroyed; never null.
    static Tree* Instance();

    /// Hangs `value` below the node and owns it from then on. False, and the
    /// caller keeps it, if it is null, in the tree already or going away, or if
    /// the node has a value of that name. Values without a name never collide.
    virtual bool AddValue(const QString& nodePath, ValueBase* value);
    /// Null if there is none.
    virtual ValueBase* GetValue(const QString& path) const;
    /// Takes the value out and deletes it. False if there is none.
    virtual bool RemoveValue(const QString& path);

    /// The last part of a path, without "/": the name of the value there. Empty
    /// for a path without parts.
    static QString NameIn(const QString& path);
    /// What stands before that part: the node, as "/a/b"; empty for the root.
    static QString NodePathIn(const QString& path);

    /// How far a question about a node goes.
    enum class Reach { Node, Subtree };

    /// The names of the nodes right below the node ("" or "/": the root), sorted.
    QStringList GetNodeNames(const QString& nodePath) const;
    /// The names of the node's own values, in the order in which they came. Values
    /// without a name are left out.
    QStringList GetValueNames(const QString& nodePath) const;
    /// The values in the node, or in it and all nodes below it; those without a
    /// name too. Node by node, and in each in the order in which they came.
    QVector<ValueBase*> GetValues(const QString& nodePath, Reach reach = Reach::Node) const;
    /// Deletes all values in the node and below it, and says how many. What
    /// observers add there meanwhile stays.
    int RemoveNode(const QString& nodePath);

    /// Whether no value is left in the node and below it.
    bool IsEmpty() const { return m_valueCount == 0; }
    /// Values without a name count too.
    int GetValueCount() const { return m_valueCount; }
    /// The paths of all named values, sorted.
    QStringList GetPathNames() const;

    Tree(const Tree&) = delete;
    Tree& operator=(const Tree&) = delete;

protected:
    Tree();
    virtual ~Tree();

private:
    friend class TreeWatch;
    friend class ValueBase;

    struct Event;
    struct Place;
    struct Key
    {
        const TreeNode* node;
        QString name; // the last part of the value's path

        bool operator==(const Key& other) const { return node == other.node && name == other.name; }
        friend uint qHash(const Key& key, uint seed = 0)
        {
            return ::qHash(key.name, ::qHash(key.node, seed));
        }
    };

    static QString pathOf(const ValueBase* value);
    static Key keyOf(const ValueBase* value);
    static Place placeOf(const QString& nodePath, const QString& name);
    bool insert(const Place& place, ValueBase* value);
    void detach(ValueBase* value);
    /// Detaches; the path that was, if there is somebody to be told.
    QString takeOut(ValueBase* value);
    bool rename(ValueBase* value, const QString& name, IObserver* originator);
    bool isWatched() const { return m_watches.GetObserverCount() > 0; }
    void tellArrived(ValueBase* value);
    void tellLeft(ValueBase* value, const QString& path);
    void tell(const Event& event);

    QHash<QString, TreeNode*> m_nodes;       // owned, by path without trailing "/"
    QMap<QString, TreeNode*> m_nodesInOrder; // the same, for what lies below a path
    QHash<Key, ValueBase*> m_values;
    Observable m_watches;
    const Event* m_event = nullptr; // what the watches are being told
    int m_valueCount = 0;
};

} // namespace values

#endif
