#include <valueframework/tree.h>

#include <valueframework/treewatch.h>
#include <vkbase/errorhandler.h>
#include <vkbase/guithread.h>
#include <vkbase/qtrace.h>

#include <QScopedValueRollback>

#include <algorithm>
#include <deque>
#include <utility>

namespace values {

/// What values of one node share.
struct TreeNode
{
    QString path; // "/a/b", empty for the root
    int valueCount = 0;
    ValueBase* first = nullptr; // in order of arrival
    ValueBase* last = nullptr;
};

/// Where a value belongs.
struct Tree::Place
{
    QString nodePath; // as in TreeNode
    QString name;     // without "/"; empty for a value that cannot be looked up
};

/// What watches are told.
struct Tree::Event
{
    ValueBase* value;
    QString path;
    bool arrived; // otherwise it left
};

namespace {

constexpr QLatin1Char slash('/');

/// Whether one "/" stands before each part and none at the end.
bool isNormal(const QString& path)
{
    bool isPartEnd = true;
    for (auto at = path.crbegin(); at != path.crend(); ++at) {
        const bool isSlash = *at == slash;
        if (isSlash && isPartEnd)
            return false;
        isPartEnd = isSlash;
    }
    return isPartEnd;
}

/// The path with one "/" before each part and none at the end.
QString normalized(const QString& path)
{
    if (isNormal(path))
        return path;
    QString result;
    for (const QString& part : path.split(slash, Qt::SkipEmptyParts))
        result += slash + part;
    return result;
}

} // namespace

Tree::Tree() = default;

Tree::~Tree()
{
    qDeleteAll(m_nodes);
}

Tree* Tree::Instance()
{
    static Tree* const instance = new Tree;
    return instance;
}

bool Tree::AddValue(const QString& nodePath, ValueBase* value)
{
    if (!value || value->m_treeNode || value->m_retired)
        return false;
    assertGuiThread(Q_FUNC_INFO);
    const Place place = placeOf(nodePath, value->m_name);
    if (!insert(place, value)) {
        if (ErrorHandler::Traces(ErrorHandler::TraceNotes))
            _Q_Trace(QStringLiteral("A value is refused: its place %1/%2 is taken")
                         .arg(place.nodePath, place.name),
                     QStringLiteral("tree"), __LINE__);
        return false;
    }
    tellArrived(value);
    return true;
}

QString Tree::NameIn(const QString& path)
{
    const QString full = normalized(path);
    return full.mid(full.lastIndexOf(slash) + 1);
}

QString Tree::NodePathIn(const QString& path)
{
    const QString full = normalized(path);
    return full.left(full.lastIndexOf(slash));
}

ValueBase* Tree::GetValue(const QString& path) const
{
    const QString full = normalized(path);
    const int split = full.lastIndexOf(slash);
    if (split < 0)
        return nullptr;
    const TreeNode* const node = m_nodes.value(full.left(split));
    return node ? m_values.value(Key{node, full.mid(split + 1)}) : nullptr;
}

bool Tree::RemoveValue(const QString& path)
{
    ValueBase* const value = GetValue(path);
    delete value; // takes itself out
    return value != nullptr;
}

QStringList Tree::GetNodeNames(const QString& nodePath) const
{
    const QString below = normalized(nodePath) + slash;
    QStringList names;
    for (auto node = m_nodesInOrder.lowerBound(below);
         node != m_nodesInOrder.end() && node.key().startsWith(below); ++node) {
        const int begin = below.size();
        const int end = node.key().indexOf(slash, begin);
        names << node.key().mid(begin, end < 0 ? -1 : end - begin);
    }
    names.sort();
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

QStringList Tree::GetValueNames(const QString& nodePath) const
{
    QStringList names;
    for (const ValueBase* value : GetValues(nodePath)) {
        const QString name = keyOf(value).name;
        if (!name.isEmpty())
            names << name;
    }
    return names;
}

QVector<ValueBase*> Tree::GetValues(const QString& nodePath, Reach reach) const
{
    QVector<ValueBase*> found;
    const auto take = [&found](const TreeNode* node) {
        for (ValueBase* value = node ? node->first : nullptr; value; value = value->m_nextInNode)
            found << value;
    };
    const QString path = normalized(nodePath);
    take(m_nodes.value(path));
    if (reach == Reach::Node)
        return found;
    const QString below = path + slash;
    for (auto node = m_nodesInOrder.lowerBound(below);
         node != m_nodesInOrder.end() && node.key().startsWith(below); ++node)
        take(*node);
    return found;
}

int Tree::RemoveNode(const QString& nodePath)
{
    // An observer of the one may delete the other.
    std::deque<ObservableGuard> doomed;
    for (ValueBase* value : GetValues(nodePath, Reach::Subtree))
        doomed.emplace_back(value);
    int removed = 0;
    for (const ObservableGuard& guard : doomed) {
        if (!guard.Get())
            continue;
        delete guard.Get();
        ++removed;
    }
    return removed;
}

QStringList Tree::GetPathNames() const
{
    QStringList paths;
    for (const ValueBase* value : m_values)
        paths << pathOf(value);
    paths.sort();
    return paths;
}

Tree::Place Tree::placeOf(const QString& nodePath, const QString& name)
{
    if (!name.contains(slash))
        return {normalized(nodePath), name};
    const QString below = normalized(name);
    const int split = below.lastIndexOf(slash);
    return {normalized(nodePath + below.left(split)), below.mid(split + 1)};
}

Tree::Key Tree::keyOf(const ValueBase* value)
{
    return {value->m_treeNode, placeOf(QString(), value->m_name).name};
}

QString Tree::pathOf(const ValueBase* value)
{
    const Key key = keyOf(value);
    return key.name.isEmpty() ? QString() : key.node->path + slash + key.name;
}

bool Tree::insert(const Place& place, ValueBase* value)
{
    TreeNode*& node = m_nodes[place.nodePath];
    if (!node) {
        node = new TreeNode{place.nodePath};
        m_nodesInOrder.insert(place.nodePath, node);
    }
    if (!place.name.isEmpty()) {
        // Nothing stands in a new node, so none is left behind empty.
        ValueBase*& there = m_values[Key{node, place.name}];
        if (there)
            return false;
        there = value;
    }
    value->m_treeNode = node;
    value->m_previousInNode = node->last;
    (node->last ? node->last->m_nextInNode : node->first) = value;
    node->last = value;
    ++node->valueCount;
    ++m_valueCount;
    return true;
}

void Tree::detach(ValueBase* value)
{
    TreeNode* const node = value->m_treeNode;
    const Key key = keyOf(value);
    if (!key.name.isEmpty())
        m_values.remove(key);
    value->m_treeNode = nullptr;
    (value->m_previousInNode ? value->m_previousInNode->m_nextInNode : node->first) = value->m_nextInNode;
    (value->m_nextInNode ? value->m_nextInNode->m_previousInNode : node->last) = value->m_previousInNode;
    value->m_previousInNode = nullptr;
    value->m_nextInNode = nullptr;
    --m_valueCount;
    if (--node->valueCount > 0)
        return;
    m_nodes.remove(node->path);
    m_nodesInOrder.remove(node->path);
    delete node;
}

QString Tree::takeOut(ValueBase* value)
{
    assertGuiThread(Q_FUNC_INFO);
    const QString path = isWatched() ? pathOf(value) : QString();
    detach(value);
    return path;
}

bool Tree::rename(ValueBase* value, const QString& name, IObserver* originator)
{
    // The node was named by whoever added the value, all but what its name adds to it.
    const QString& path = value->m_treeNode->path;
    const int ownParts = placeOf(QString(), value->m_name).nodePath.size();
    const Place place = placeOf(path.left(path.size() - ownParts), name);
    const TreeNode* const node = m_nodes.value(place.nodePath);
    ValueBase* const there = node ? m_values.value(Key{node, place.name}) : nullptr;
    if (there && there != value)
        return false;
    if (!there) {
        const QString before = takeOut(value);
        value->m_name = name;
        insert(place, value);
        const ObservableGuard alive(value);
        if (!before.isEmpty())
            tellLeft(value, before);
        if (alive.Get())
            tellArrived(value);
        if (!alive.Get())
            return true;
    }
    value->m_name = name;
    value->HasChanged(ChangeCode::Name, originator);
    return true;
}

void Tree::tellArrived(ValueBase* value)
{
    const QString path = isWatched() ? pathOf(value) : QString();
    if (path.isEmpty())
        return;
    const ObservableGuard alive(value);
    tell({value, path, true});
    Q_ASSERT_X(alive.Get(), "values::Tree", "whoever added the value goes on with it: do not delete it yet");
}

void Tree::tellLeft(ValueBase* value, const QString& path)
{
    tell({value, path, false});
}

void Tree::tell(const Event& event)
{
    const QScopedValueRollback<const Event*> current(m_event, &event);
    m_watches.NotifyObservers(ChangeCode::State);
}

TreeWatch::TreeWatch(const QString& nodePath, Callback arrived, Callback left)
    : m_below(normalized(nodePath) + slash)
    , m_arrived(std::move(arrived))
    , m_left(std::move(left))
{
    Tree::Instance()->m_watches.AddObserver(this);
}

TreeWatch::~TreeWatch()
{
    Tree::Instance()->m_watches.DeleteObserver(this);
}

void TreeWatch::Update(Observable* tree, TChangeCode code)
{
    Q_UNUSED(tree)
    Q_UNUSED(code)
    const Tree::Event& event = *Tree::Instance()->m_event;
    if (!event.path.startsWith(m_below))
        return;
    const Callback callback = event.arrived ? m_arrived : m_left; // a copy: it may destroy this
    if (callback)
        callback(event.value, event.path);
}

} // namespace values
