#ifndef ZORVA_VALUEFRAMEWORK_TREEWATCH_H
#define ZORVA_VALUEFRAMEWORK_TREEWATCH_H

#include <valueframework/valueframework_export.h>
#include <vkbase/iobserver.h>

#include <QString>

#include <functional>

namespace values {

class ValueBase;

/// Tells, as long as it lives, of named values that come to a node of the tree or
/// to one below it, and of those that go. A value that is renamed goes from the
/// one path and comes to the other.
class VALUEFRAMEWORK_EXPORT TreeWatch : private IObserver
{
public:
    /// `path` is the value's in the tree.
    using Callback = std::function<void(ValueBase* value, const QString& path)>;

    /// "" or "/" watches the whole tree. `arrived` is called when the value is in
    /// its place, and must not delete it; `left` when it is out of it, before its
    /// observers are told: of one that is being destroyed only state and name may
    /// be asked then. Either may be empty, and may destroy this watch.
    TreeWatch(const QString& nodePath, Callback arrived, Callback left);
    TreeWatch(const TreeWatch&) = delete;
    TreeWatch& operator=(const TreeWatch&) = delete;
    ~TreeWatch() override;

private:
    void Update(Observable* tree, TChangeCode code) override;

    QString m_below; // the node's path with a "/" behind it
    Callback m_arrived;
    Callback m_left;
};

} // namespace values

#endif
