#ifndef ZORVAFORMWINDOW_P_H
#define ZORVAFORMWINDOW_P_H

#include <QObject>

class QWidget;

namespace Orvane {

/**
 * Opens the top widget of a form, where it is a window of its own to which nobody gave a
 * size, as large as its rows and the screen allow. Qt itself stops at two thirds of the screen.
 */
class FormWindow : public QObject
{
public:
    /** Owned by @p top. */
    explicit FormWindow(QWidget* top);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void opening();

    QWidget* window; // the parent
};

} // namespace Orvane

#endif
