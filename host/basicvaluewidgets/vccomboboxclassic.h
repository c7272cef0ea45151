#ifndef ZORVA_VCCOMBOBOXCLASSIC_H
#define ZORVA_VCCOMBOBOXCLASSIC_H

#include <basicvaluewidgets/valuebinding.h>
#include <guibase/undorecordingcontrolbase.h>
#include <vkbase/iobserver.h>

#include <QComboBox>

namespace values {
class ValueSelection;
}
class QStandardItem;
class QStandardItemModel;
class QStyleOptionComboBox;

/// A combo box that shows a selection's items and writes the user's choice with
/// the control as originator. Entries stand in the value's order and carry the
/// untranslated name in Qt::UserRole; nothing selected shows blank. The model
/// is a QStandardItemModel; what is switched off there stays so while the
/// entry keeps its place and name.
class BASICVALUEWIDGETS_EXPORT VCComboBoxClassic : public QComboBox,
                                                   public IObserver,
                                                   public UndoRecordingControlBase
{
    Q_OBJECT
    Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled)
    Q_PROPERTY(bool readOnly READ isReadOnly WRITE setReadOnly)

public:
    /// name is the object name, null for none.
    VCComboBoxClassic(QWidget* parent, const char* name);
    ~VCComboBoxClassic() override;

    /// Null unbinds and keeps the entries. The value is not owned.
    void SetValueSelection(values::ValueSelection* value);
    void Update(Observable* observable, TChangeCode code) override;

    /// Blocks mouse, keyboard and wheel; the value still shows.
    bool isReadOnly() const { return m_readOnly; }
    /// Blocks the user's choice; the value goes on to be shown.
    void setReadOnly(bool readOnly);

    /// As wide as the widest entry within the ends of FieldSize, beyond which
    /// the entry is elided; measured once for equal controls.
    QSize sizeHint() const override;
    /// Wide enough for the common width of all controls.
    QSize minimumSizeHint() const override;
    /// The list is as wide as its entries need.
    void showPopup() override;

public Q_SLOTS:
    /// The host's gate; a control whose value is gone stays disabled.
    void setEnabled(bool enabled);

protected:
    void ApplyRecordedState(const QVariant& state) override;
    /// Qt's own: the looks of a value that may be away, and input that readOnly blocks.
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;          ///< Likewise.
    void keyPressEvent(QKeyEvent* event) override;     ///< Likewise.
    void mousePressEvent(QMouseEvent* event) override; ///< Likewise.
    void paintEvent(QPaintEvent* event) override;      ///< Likewise.
    /// Steps only with the focus; otherwise the form below scrolls.
    void wheelEvent(QWheelEvent* event) override;

private:
    values::ValueSelection* selection() const;
    QStandardItemModel* items() const;
    void resyncItems();
    bool resyncItem(QStandardItem* item, const QString& name);
    void itemsAdded();
    void appendItems(int first);
    void entriesChanged();
    QString nameAt(int index) const;
    QString shownName(const QString& name) const;
    void refresh();
    void choose(int index);
    QString entriesKey() const;
    QSize contentsSize() const;
    void paintReadOnly(QStyleOptionComboBox& option);

    ValueBinding m_binding;
    bool m_readOnly = false;
    bool m_refreshing = false;
    bool m_checkPending = false;
    int m_shownIndex = -1;        // the entry before the user's next choice
    mutable QString m_entriesKey; // null until asked for after a change
};

#endif
