#ifndef ZORVAELIDINGWIDGETS_P_H
#define ZORVAELIDINGWIDGETS_P_H

#include <QLabel>
#include <QPushButton>

namespace Orvane {

/**
 * A label of a row. A plain text beyond FieldSize's upper width is elided, and whole
 * in the tool tip unless there is another one.
 */
class ElidingLabel final : public QLabel
{
public:
    using QLabel::QLabel;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool isPlain() const;
    bool isElided() const;
    QString shownText() const;
};

/** A push button that elides a text beyond FieldSize's upper width. */
class ElidingButton final : public QPushButton
{
public:
    using QPushButton::QPushButton;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace Orvane

#endif
