#include <layout/bulkchange.h>

#include <QCoreApplication>
#include <QEvent>
#include <QLayout>
#include <QPointer>
#include <QWidget>

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

/// What one guard holds. Lets go by itself when an event loop turns.
class BulkHold : public QObject
{
public:
    /// `content` and `layout` are held where they are not null.
    BulkHold(QWidget* content, QLayout* layout);

    void release();
    bool event(QEvent* event) override;

private:
    void releaseLayout();
    void releasePainting();

    QPointer<QWidget> m_content;
    QPointer<QLayout> m_layout;
};

BulkHold::BulkHold(QWidget* content, QLayout* layout)
    : m_content(content)
    , m_layout(layout)
{
    if (m_layout)
        m_layout->setEnabled(false);
    if (m_content)
        markUpdatesDisabled(m_content, true);
    QCoreApplication::postEvent(this, new QEvent(QEvent::User), Qt::HighEventPriority);
}

bool BulkHold::event(QEvent* event)
{
    if (event->type() != QEvent::User)
        return QObject::event(event);
    release();
    return true;
}

void BulkHold::release()
{
    if (m_layout)
        releaseLayout();
    if (m_content)
        releasePainting();
    m_layout.clear();
    m_content.clear();
}

void BulkHold::releaseLayout()
{
    m_layout->setEnabled(true);
    m_layout->update();
    // A request that was delivered while the layout was off is lost, and the
    // layout asks only once; the spare one is compressed away.
    if (QWidget* owner = m_layout->parentWidget())
        QCoreApplication::postEvent(owner, new QEvent(QEvent::LayoutRequest));
}

void BulkHold::releasePainting()
{
    // Every child shown meanwhile has asked itself for a later update; heard
    // now, that is dropped.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateLater);
    if (!m_content || !updatesWanted(m_content))
        return;
    markUpdatesDisabled(m_content, false);
    m_content->update();
}

BulkChange::BulkChange(QWidget* content, Hold hold)
{
    if (!content || content->isVisible() == (hold == ComingOnScreen))
        return;
    QLayout* const layout = hold == PaintingAndLayout ? content->layout() : nullptr;
    QLayout* const heldLayout = layout && layout->isEnabled() ? layout : nullptr;
    QWidget* const heldContent = content->updatesEnabled() ? content : nullptr;
    if (heldLayout || heldContent)
        m_hold = std::make_unique<BulkHold>(heldContent, heldLayout);
}

BulkChange::~BulkChange()
{
    if (m_hold)
        m_hold->release();
}
