#include <layout/bulkchange.h>

#include <QCoreApplication>
#include <QEvent>

namespace {

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

BulkChange::BulkChange(QWidget* content, Hold hold)
{
    if (!content || content->isVisible() == (hold == ComingOnScreen))
        return;
    if (hold == PaintingAndLayout)
        holdLayout(content->layout());
    holdPainting(content);
}

BulkChange::~BulkChange()
{
    if (m_layout)
        releaseLayout();
    if (m_content)
        releasePainting();
}

void BulkChange::holdLayout(QLayout* layout)
{
    if (!layout || !layout->isEnabled())
        return;
    m_layout = layout;
    m_layout->setEnabled(false);
}

void BulkChange::holdPainting(QWidget* content)
{
    if (!content->updatesEnabled())
        return;
    m_content = content;
    markUpdatesDisabled(content, true);
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
