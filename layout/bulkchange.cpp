#include <layout/bulkchange.h>

#include <QCoreApplication>
#include <QEvent>
#include <QVector>

namespace {

// The content widgets held at present, innermost last; cleared entries are
// content that died meanwhile.
QVector<QPointer<QWidget>>& heldContents()
{
    static QVector<QPointer<QWidget>> contents;
    return contents;
}

bool isHeld(const QWidget* content)
{
    for (const QPointer<QWidget>& held : qAsConst(heldContents())) {
        if (held == content)
            return true;
    }
    return false;
}

// Marks the widget and what lies in it by the bare attribute. Coming back by
// QWidget::setUpdatesEnabled would ask for the update of every single child,
// and painting tests each of those against all its siblings.
void markUpdatesDisabled(QWidget* widget, bool disabled)
{
    widget->setAttribute(Qt::WA_UpdatesDisabled, disabled);
    for (QObject* object : widget->children()) {
        if (!object->isWidgetType())
            continue;
        auto* child = static_cast<QWidget*>(object);
        if (!child->isWindow() && !child->testAttribute(Qt::WA_ForceUpdatesDisabled))
            markUpdatesDisabled(child, disabled);
    }
}

bool updatesWanted(const QWidget* widget)
{
    const QWidget* parent = widget->isWindow() ? nullptr : widget->parentWidget();
    return !widget->testAttribute(Qt::WA_ForceUpdatesDisabled) && (!parent || parent->updatesEnabled());
}

} // namespace

BulkChange::BulkChange(QWidget* content)
{
    if (!content || !content->isVisible() || isHeld(content))
        return;
    m_content = content;
    heldContents().append(m_content);
    if (content->layout() && content->layout()->isEnabled()) {
        m_layout = content->layout();
        m_layout->setEnabled(false);
    }
    m_paintingHeld = content->updatesEnabled();
    if (m_paintingHeld)
        markUpdatesDisabled(content, true);
}

BulkChange::~BulkChange()
{
    if (m_layout)
        releaseLayout();
    if (m_content && m_paintingHeld)
        releasePainting();
    heldContents().removeAll(m_content);
}

void BulkChange::releaseLayout()
{
    m_layout->setEnabled(true);
    m_layout->update();
    // A request that was delivered while the layout was off is lost, and the
    // layout asks only once; the spare one is compressed away.
    if (QWidget* owner = m_layout->parentWidget())
        QCoreApplication::postEvent(owner, new QEvent(QEvent::LayoutRequest));
}

void BulkChange::releasePainting()
{
    // Every child shown meanwhile has asked itself for a later update; heard
    // now, that is dropped.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateLater);
    if (!m_content || !updatesWanted(m_content))
        return;
    markUpdatesDisabled(m_content, false);
    m_content->update();
}
