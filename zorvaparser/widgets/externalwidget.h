#ifndef ZORVAEXTERNALWIDGET_H
#define ZORVAEXTERNALWIDGET_H

#include <zorvaparser/zorvadelegate.h>

#include <QWidget>

namespace Orvane {

/** The row of a widget that the host brings along: it only hands that widget to the layout. */
class ExternalWidget : public ZorvaDelegate
{
    Q_OBJECT

public:
    /** @p externalWidget, which may be null, stays the host's until CreateGUI() lays it out. */
    ExternalWidget(ZorvaWidget* widget, QWidget* externalWidget);

    void CreateGUI(FloatGroupLayout* layout) override;

public Q_SLOTS:
    void setFocus() override;

protected:
    void PropertyChanged(const QString& name, const QVariant& value) override;

private:
    QPointer<QWidget> externalWidget; // not owned
};

} // namespace Orvane

#endif
