#ifndef ZORVA_LAYOUT_VIEWPORTREQUEST_P_H
#define ZORVA_LAYOUT_VIEWPORTREQUEST_P_H

#include <QEvent>

/// The type of the event that has a FloatScrollArea give its viewport the room that the
/// area has by now. Posted to the area; others ignore it.
inline QEvent::Type viewportRequest()
{
    static const int type = QEvent::registerEventType();
    return QEvent::Type(type);
}

#endif
