#ifndef ZORVA_LAYOUT_BULKSHOW_P_H
#define ZORVA_LAYOUT_BULKSHOW_P_H

#include <QObject>

class QWidget;

/// Has a content widget painted as a whole when it comes on screen, by itself
/// or with what it lies in. Otherwise each child asks for its own painting
/// before the content does, and each of these requests is tested against all
/// later siblings. Nothing is done while painting is switched off already, as it
/// is when a stack of pages turns to another page.
class BulkShow : public QObject
{
public:
    BulkShow(QWidget* content, QObject* parent);

    bool eventFilter(QObject* watched, QEvent* event) override;
};

#endif
