#ifndef ZORVA_VCCHECKBOX_H
#define ZORVA_VCCHECKBOX_H

#include <basicvaluewidgets/valuebinding.h>
#include <guibase/undorecordingcontrolbase.h>
#include <valueframework/value.h>
#include <vkbase/iobserver.h>

#include <QCheckBox>

/// A check box that shows and writes a bool. Every toggle is written with the
/// control as originator.
class BASICVALUEWIDGETS_EXPORT VCCheckBox : public QCheckBox,
                                            public IObserver,
                                            public UndoRecordingControlBase
{
    Q_OBJECT
    Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled)
    Q_PROPERTY(bool readOnly READ isReadOnly WRITE setReadOnly)

public:
    /// name is the object name, null for none.
    VCCheckBox(QWidget* parent, const char* name);
    ~VCCheckBox() override;

    /// Null unbinds and leaves a plain check box. The value is not owned.
    void SetBoolean(values::ValueBool* value);
    void Update(Observable* observable, TChangeCode code) override;

    /// Blocks mouse, keyboard and shortcuts; the value still shows.
    bool isReadOnly() const { return m_readOnly; }
    /// Blocks the user's toggles; the value goes on to be shown.
    void setReadOnly(bool readOnly);

    /// As high as the fields of one line, so that all rows have one rhythm.
    QSize sizeHint() const override;

public Q_SLOTS:
    /// The host's gate; a control whose value is gone stays disabled.
    void setEnabled(bool enabled);

protected:
    void ApplyRecordedState(const QVariant& state) override;
    /// Qt's own: the looks of a value that may be away, and toggles that readOnly blocks.
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;              ///< Likewise.
    bool hitButton(const QPoint& position) const override; ///< Likewise.
    void keyPressEvent(QKeyEvent* event) override;         ///< Likewise.
    void nextCheckState() override;                        ///< Likewise.
    void paintEvent(QPaintEvent* event) override;          ///< Likewise.

private:
    values::ValueBool* boolean() const;
    void refresh();
    void setCheckedCheaply(bool checked);
    void write(bool checked);

    ValueBinding m_binding;
    bool m_readOnly = false;
    bool m_refreshing = false;
};

#endif
