#ifndef ZORVAFORMWINDOW_P_H
#define ZORVAFORMWINDOW_P_H

#include <QFrame>
#include <QObject>
#include <QPointer>
#include <QWidgetList>

namespace Orvane {

/**
 * What a form does as a window: a hairline parts rows and bar; Tab walks its rows in reading order and ends
 * in the bar, also after rows were inserted. A window that opens has its focus in the first row, unless a
 * host gave it to something else. Where the top widget is a window of its own that nobody gave a size, it is
 * as large as its rows and the screen allow; Qt itself stops at two thirds of the screen.
 */
class FormWindow : public QObject
{
public:
    /** Owned by @p top. @p content carries the layout of the rows, @p bar may be null. */
    FormWindow(QWidget* top, QWidget* content, QWidget* bar);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void opening();
    void orderLater();
    void order();
    QWidgetList controlsInReadingOrder() const;
    void focusFirstRow() const;
    void placeLine();

    QWidget* window; // the parent
    QPointer<QWidget> content;
    QPointer<QWidget> bar;
    QPointer<QFrame> line; // above the bar
    bool orderDue = true;
    bool orderPosted = false;
};

} // namespace Orvane

#endif
