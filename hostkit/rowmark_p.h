#ifndef ZORVA_HOSTKIT_ROWMARK_P_H
#define ZORVA_HOSTKIT_ROWMARK_P_H

#include <hostkit/rowstates.h>

#include <QWidget>

namespace hostkit {

/** The sign at the end of a caption. It keeps to the right end of its parent, which it does not outlive. */
class RowMark : public QWidget
{
    Q_OBJECT

public:
    /** Pixels that a caption has to leave free for it. */
    static constexpr int room = 18;

    explicit RowMark(QWidget* parent);

    void setState(RowState state);

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void place();

    RowState m_state = RowState::Unread;
};

} // namespace hostkit

#endif
