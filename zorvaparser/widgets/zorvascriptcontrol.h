#ifndef ZORVASCRIPTCONTROL_H
#define ZORVASCRIPTCONTROL_H

#include <zorvaparser/zorvadelegate.h>

#include <QBoxLayout>
#include <QPixmap>
#include <QPushButton>

namespace Orvane {

/**
 * A status light and the buttons load, edit and clear in one row. Clicks go out
 * as signals; the application answers by the custom property "scriptloaded".
 */
class ZorvaScriptControl : public ZorvaDelegate
{
    Q_OBJECT

public:
    explicit ZorvaScriptControl(ZorvaWidget* widget);

    void CreateGUI(FloatGroupLayout* layout) override;

Q_SIGNALS:
    void clearScriptClicked();
    void editScriptClicked();
    void loadScriptClicked();

public Q_SLOTS:
    /** These six act on the buttons alone; before they exist nothing is remembered. */
    void setEnabledClear(bool flag);
    void setEnabledEdit(bool flag);
    void setEnabledLoad(bool flag);
    void setVisibleClear(bool flag);
    void setVisibleEdit(bool flag);
    void setVisibleLoad(bool flag);
    void sl_customPropertyChanged(QString name, QVariant value);

protected:
    void PropertyChanged(const QString& name, const QVariant& value) override;

private:
    QPushButton* CreateButton(const char* nameSuffix, const char* image, const QString& word);
    void CreateStatusLabel();
    void ConnectButtons();
    void ShowLight();
    void UpdateStatus();

    // All owned by the layout's parent widget.
    QPointer<QWidget> controlWidget;
    QPointer<QBoxLayout> controlLayout;
    QPointer<QLabel> statusLabel;
    QPointer<QPushButton> loadButton;
    QPointer<QPushButton> editButton;
    QPointer<QPushButton> clearButton;
    QPixmap loadedPixmap; // both null before the controls are made
    QPixmap notLoadedPixmap;
    bool scriptLoaded;
};

} // namespace Orvane

#endif
