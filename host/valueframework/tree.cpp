#include <valueframework/tree.h>

#include <algorithm>

namespace values {

/// What values of one node share.
struct TreeNode
{
    QString path; // "/a/b", empty for the root
    int valueCount = 0;
};

/// Where a value belongs.
struct Tree::Place
{
    QString nodePath; // as in TreeNode
    QString name;     // without "/"; empty for a value that cannot be looked up
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
    return insert(placeOf(nodePath, value->m_name), value);
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
    if (!node)
        node = new TreeNode{place.nodePath, 0};
    if (!place.name.isEmpty()) {
        // Nothing stands in a new node, so none is left behind empty.
        ValueBase*& there = m_values[Key{node, place.name}];
        if (there)
            return false;
        there = value;
    }
    value->m_treeNode = node;
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
    --m_valueCount;
    if (--node->valueCount > 0)
        return;
    m_nodes.remove(node->path);
    delete node;
}

bool Tree::rename(ValueBase* value, const QString& name)
{
    // The node was named by whoever added the value, all but what its name adds to it.
    const QString& path = value->m_treeNode->path;
    const int ownParts = placeOf(QString(), value->m_name).nodePath.size();
    const Place place = placeOf(path.left(path.size() - ownParts), name);
    const TreeNode* const node = m_nodes.value(place.nodePath);
    ValueBase* const there = node ? m_values.value(Key{node, place.name}) : nullptr;
    if (there && there != value)
        return false;
    detach(value);
    return insert(place, value);
}

} // namespace values
