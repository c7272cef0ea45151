#ifndef ZORVAPUSHBUTTON_H
#define ZORVAPUSHBUTTON_H

#include <zorvaparser/zorvadelegate.h>

#include <QIcon>
#include <QPointer>
#include <QPushButton>
#include <QSize>

namespace Orvane {

/** A row with a plain button for a form's script. It has no value and no parameter XML. */
class ZorvaPushButton : public ZorvaDelegate
{
    Q_OBJECT

public:
    explicit ZorvaPushButton(ZorvaWidget* widget);
    ~ZorvaPushButton() override;

    void CreateGUI(FloatGroupLayout* layout) override;

Q_SIGNALS:
    void clicked();
    void pressed();
    void released();

public Q_SLOTS:
    /** A click shown for 100 milliseconds; nothing without a control. */
    void animateClick();
    /** Clears the stored property; the button keeps showing its icon. */
    void clearIcon();
    void setIcon(QIcon icon);
    /** A path to no regular file, or to an image too large for a button, stores a null icon. */
    void setIcon(QString iconFilePath);
    /** At most 1024 by 1024 pixels. */
    void setIconSize(QSize size);
    void setIconSize(int width, int height);
    void setText(QString text);
    void setFocus() override;

protected:
    void PropertyChanged(const QString& name, const QVariant& value) override;
    void Retranslate() override;

private:
    QPointer<QPushButton> pushButton; // owned by the widget tree
};

} // namespace Orvane

#endif
