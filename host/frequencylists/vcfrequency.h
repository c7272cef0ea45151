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
    bool SetBandwidth_ValuePath(const QString& path);

    /// False: the frequency shows, but nothing here changes it.
    void EnableInput(bool enable);
    bool isReadOnly() const { return m_readOnly; }
    /// Works like EnableInput with the opposite sense; both have to allow input.
    void setReadOnly(bool readOnly);
    /// Greys the three buttons, or gives them back.
    void EnableButtons(bool enable);
    void DisableButtons() { EnableButtons(false); }

    VCButton* GetTuneButton() const { return m_tuneButton; }
    VCMiniFrequency* GetFrequencyButtonCtrl() const { return m_frequencyButton; }
    VCMiniFrequency* GetHistoryButtonCtrl() const { return m_historyButton; }

    /// Newest first, each once, ten at the most.
    const QVector<double>& History() const { return m_history; }
    void SetUnit(FrequencyText::Unit unit);

    void Update(Observable* observable, TChangeCode code) override;
    void EnableContextMenu(bool enable) override;

public Q_SLOTS:
    void setEnabled(bool enabled);
    /// Writes the frequency as the user's choice and remembers it.
    void slotSetFrequencyValue(double hertz);
    /// One bandwidth, or one step of the value if no bandwidth is bound.
    void slotIncrement();
    void slotDecrement();
    /// Numbers that are not finite are left out.
    void slotAddToHistory(double hertz);

Q_SIGNALS:
    /// The tune button, with the frequency that stands.
    void signalTune(double hertz);

protected:
    QWidget* MakePropertyPage(QWidget* parent) override;
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void showEvent(QShowEvent* event) override;

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
