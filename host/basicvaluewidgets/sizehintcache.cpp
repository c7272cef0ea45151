#include "basicvaluewidgets/sizehintcache_p.h"

#include <QFont>
#include <QHash>
#include <QSet>
#include <QStyle>
#include <QWidget>

namespace {

// More kinds of controls than any form has; a script that makes up new texts
// without end must not fill the memory.
constexpr int MaximumHints = 4096;

struct Key
{
    const QMetaObject* kind;
    QString contents;
    QFont font;
    const void* style;
    int dpi;
};

bool operator==(const Key& left, const Key& right)
{
    return left.kind == right.kind && left.style == right.style && left.dpi == right.dpi &&
           left.contents == right.contents && left.font == right.font;
}

uint qHash(const Key& key, uint seed = 0)
{
    return qHash(key.contents, seed) ^ qHash(key.font, seed) ^ ::qHash(key.kind, seed);
}

QHash<Key, QSize>& hints()
{
    static QHash<Key, QSize> stored;
    return stored;
}

} // namespace

QSize SizeHintCache::Hint(const QWidget* control, const QString& contents,
                          const std::function<QSize()>& measure)
{
    control->ensurePolished();
    if (control->testAttribute(Qt::WA_StyleSheet))
        return measure();
    const Key key{control->metaObject(), contents, control->font(), control->style(), control->logicalDpiX()};
    const auto known = hints().constFind(key);
    if (known != hints().cend())
        return *known;
    const QSize hint = measure();
    if (hints().size() >= MaximumHints)
        hints().clear();
    hints().insert(key, hint);
    return hint;
}

QString SizeHintCache::Shared(const QString& contents)
{
    static QSet<QString> stored;
    if (stored.size() >= MaximumHints)
        stored.clear();
    return *stored.insert(contents);
}

void SizeHintCache::Forget()
{
    hints().clear();
}
