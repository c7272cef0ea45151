#ifndef ZORVA_SIZEHINTCACHE_P_H
#define ZORVA_SIZEHINTCACHE_P_H

#include <QFont>
#include <QHash>
#include <QSize>
#include <QString>

class QWidget;

/// Size hints shared between equal controls: a form of a thousand rows measures
/// each kind of control once instead of shaping every text again.
class SizeHintCache
{
public:
    /// What makes two controls of one class equal: their contents as text, and
    /// what the widget takes from its surroundings.
    struct Key
    {
        Key(const QWidget* control, QString contents);

        QString contents;
        QFont font;
        const void* style;
        int dpi;
    };

    /// Null if nothing is stored.
    QSize find(const Key& key) const { return m_hints.value(key); }
    void insert(const Key& key, const QSize& hint);
    /// A style is known by its address only, which another one may take over.
    void clear() { m_hints.clear(); }

    /// False if a style sheet may treat each widget differently.
    static bool isShareable(const QWidget* control);

private:
    QHash<Key, QSize> m_hints;
};

bool operator==(const SizeHintCache::Key& left, const SizeHintCache::Key& right);
uint qHash(const SizeHintCache::Key& key, uint seed = 0);

#endif
