#ifndef ZORVA_VCFREQUENCY_H
#define ZORVA_VCFREQUENCY_H

#include <basicvaluewidgets/frequencytext.h>
#include <basicvaluewidgets/valuebinding.h>
#include <devicecontrolwidgets/control.h>
#include <frequencylists/frequencylists_export.h>
#include <frequencylists/vcbutton.h>
#include <frequencylists/vcminifrequency.h>
#include <vkbase/iobserver.h>

#include <QMenu>
#include <QPointer>
#include <QVector>
#include <QWidget>

class FrequencyEdit;
namespace values {
class IValueNumeric;
}

/// The main frequency entry of a receiver: an edit in which arrows and wheel
/// turn the digit at the cursor and the page keys step by the bandwidth, a
/// button for the unit shown, a button for the frequencies entered last, and a
/// button for tuning. Frequencies are hertz.
class FREQUENCYLISTS_EXPORT VCFrequency : public QWidget, public Control, public IObserver
{
    Q_OBJECT
    Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled)
    Q_PROPERTY(bool readOnly READ isReadOnly WRITE setReadOnly)

public:
    /// compact shows the edit alone. popupOwner is the widget below which the
    /// menus hang (null: this control; it may die first). withHistory false
    /// leaves the history button out.
    VCFrequency(QWidget* parent, const char* name, bool compact, QWidget* popupOwner, bool withHistory);
    ~VCFrequency() override;

    /// Bind the numeric value at a tree path. False if there is none; the path
    /// is tried again whenever the control is shown. An empty path unbinds.
    bool SetFrequency_ValuePath(const QString& path);
    /// Where the bandwidth lies that the page keys step by; false if there is nothing yet, and tried again at
    /// each show.
    bool SetBandwidth_ValuePath(const QString& path);

    /// False: the frequency shows, but nothing here changes it.
    void EnableInput(bool enable);
    /// Whether the user's input is blocked.
    bool isReadOnly() const { return m_readOnly; }
    /// Works like EnableInput with the opposite sense; both have to allow input.
    void setReadOnly(bool readOnly);
    /// Greys the three buttons, or gives them back.
    void EnableButtons(bool enable);
    /// The same as EnableButtons(false).
    void DisableButtons() { EnableButtons(false); }

    /// The buttons, owned by this control; null where the form of the control has none.
    VCButton* GetTuneButton() const { return m_tuneButton; }
    VCMiniFrequency* GetFrequencyButtonCtrl() const { return m_frequencyButton; } ///< Likewise.
    VCMiniFrequency* GetHistoryButtonCtrl() const { return m_historyButton; }     ///< Likewise.

    /// Newest first, each once, ten at the most.
    const QVector<double>& History() const { return m_history; }
    /// Shows the frequency in @p unit from now on.
    void SetUnit(FrequencyText::Unit unit);

    void Update(Observable* observable, TChangeCode code) override;
    /// Allows the context menu.
    void EnableContextMenu(bool enable) override;

public Q_SLOTS:
    /// One of the two gates of input; EnableInput() is the other.
    void setEnabled(bool enabled);
    /// Writes the frequency as the user's choice and remembers it.
    void slotSetFrequencyValue(double hertz);
    /// One bandwidth, or one step of the value if no bandwidth is bound.
    void slotIncrement();
    /// One step down at the cursor's digit, as the arrow key does.
    void slotDecrement();
    /// Numbers that are not finite are left out.
    void slotAddToHistory(double hertz);

Q_SIGNALS:
    /// The tune button, with the frequency that stands.
    void signalTune(double hertz);

protected:
    QWidget* MakePropertyPage(QWidget* parent) override;
    /// Qt's own: looks, menu, and the look for a bandwidth at each show.
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;                 ///< Likewise.
    void contextMenuEvent(QContextMenuEvent* event) override; ///< Likewise.
    void showEvent(QShowEvent* event) override;               ///< Likewise.

private:
    void makeButtons(bool compact, bool withHistory);
    bool inputAllowed() const;
    void stepBy(int steps);
    double stepWidth() const;
    void tune();
    void popUp(const QWidget* button);
    QMenu* makeMenu();
    void openUnitMenu();
    void openHistoryMenu();

    ValueBinding m_frequency;
    ValueBinding m_bandwidth;
    QString m_frequencyPath; // empty: none wanted
    QString m_bandwidthPath;
    FrequencyEdit* m_edit = nullptr; // the children live in the widget tree
    VCMiniFrequency* m_frequencyButton = nullptr;
    VCMiniFrequency* m_historyButton = nullptr;
    VCButton* m_tuneButton = nullptr;
    QPointer<QWidget> m_popupOwner;
    QPointer<QMenu> m_menu; // the one that is open; goes with this control
    QVector<double> m_history;
    bool m_inputEnabled = true;
    bool m_readOnly = false;
};

#endif
