#include "basicvaluewidgets/sizehintcache_p.h"

#include <QStyle>
#include <QWidget>

namespace {

// More kinds of controls than any form has; a script that makes up new texts
// without end must not fill the memory.
constexpr int MaximumHints = 4096;

} // namespace

SizeHintCache::Key::Key(const QWidget* control, QString contentsText)
    : contents(std::move(contentsText))
    , font(control->font())
    , style(control->style())
    , dpi(control->logicalDpiX())
{
}

bool operator==(const SizeHintCache::Key& left, const SizeHintCache::Key& right)
{
    return left.style == right.style && left.dpi == right.dpi && left.contents == right.contents &&
           left.font == right.font;
}

uint qHash(const SizeHintCache::Key& key, uint seed)
{
    return qHash(key.contents, seed) ^ qHash(key.font, seed);
}

void SizeHintCache::insert(const Key& key, const QSize& hint)
{
    if (m_hints.size() >= MaximumHints)
        m_hints.clear();
    m_hints.insert(key, hint);
}

bool SizeHintCache::isShareable(const QWidget* control)
{
    return !control->testAttribute(Qt::WA_StyleSheet);
}
