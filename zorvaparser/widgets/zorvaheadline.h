#ifndef ZORVAHEADLINE_H
#define ZORVAHEADLINE_H

#include <zorvaparser/zorvadelegate.h>

#include <QGroupBox>
#include <QPointer>

namespace Orvane {

/**
 * The collapsible head of a group of rows. It stays usable while input is
 * disabled, so that the group can still be opened. An empty text makes no head.
 */
class ZorvaHeadline : public ZorvaDelegate
{
    Q_OBJECT

public:
    explicit ZorvaHeadline(ZorvaWidget* widget);
    ~ZorvaHeadline() override;

    void CreateGUI(FloatGroupLayout* layout) override;
    /** Does nothing. */
    void EnableInput(bool enable, bool restricted) override;

public Q_SLOTS:
    /** Text and margin are read when the control is made. */
    void setText(QString text);
    void setMargin(int value);
    /** Shows the state of the group; a headline is never hidden by its own group. */
    void setGroupVisible(bool flag) override;

protected:
    void PropertyChanged(const QString& name, const QVariant& value) override;
    void Retranslate() override;

private Q_SLOTS:
    void slotClicked(bool clicked);

private:
    void UpdateToolTip();

    QPointer<QGroupBox> groupBox; // owned by the widget tree
};

} // namespace Orvane

#endif
