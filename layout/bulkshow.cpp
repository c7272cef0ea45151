#include "bulkshow_p.h"

#include <layout/bulkchange.h>

#include <QEvent>
#include <QWidget>

BulkShow::BulkShow(QWidget* content, QObject* parent)
    : QObject(parent)
{
    content->installEventFilter(this);
}

bool BulkShow::eventFilter(QObject* watched, QEvent* event)
{
    // By now the children have asked; the content itself asks after this event.
    if (event->type() == QEvent::Show && !event->spontaneous() && watched->isWidgetType())
        const BulkChange bulk(static_cast<QWidget*>(watched), BulkChange::Painting);
    return QObject::eventFilter(watched, event);
}
