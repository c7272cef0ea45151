#ifndef ZORVASEPARATOR_H
#define ZORVASEPARATOR_H

#include <zorvaparser/zorvadelegate.h>

#include <QPointer>
#include <QWidget>

namespace Orvane {

/** A line between sections, or a gap of fixed height between rows. */
class ZorvaSeparator : public ZorvaDelegate
{
    Q_OBJECT

public:
    ZorvaSeparator(ZorvaWidget* widget, bool isLine);
    ~ZorvaSeparator() override;

    void CreateGUI(FloatGroupLayout* layout) override;

public Q_SLOTS:
    /** In pixels; read when the control is made, and so is the margin. */
    void setHeight(int value);
    void setMargin(int value);

protected:
    void PropertyChanged(const QString& name, const QVariant& value) override;

private:
    bool isLine;
    QPointer<QWidget> spacerWidget; // owned by the widget tree
};

} // namespace Orvane

#endif
