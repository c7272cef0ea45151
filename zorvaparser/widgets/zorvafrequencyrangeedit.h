#ifndef ZORVAFREQUENCYRANGEEDIT_H
#define ZORVAFREQUENCYRANGEEDIT_H

#include <zorvaparser/zorvadelegate.h>
#include <zorvaparser/zorvaparser_export.h>

#include <QPair>

class VCLineEdit;

namespace Orvane {

/**
 * A start and a stop frequency in hertz, in one row. What the user or the value
 * tree changes stays ordered: the edited end wins, the other one gives way to
 * one hertz beside it. What the slots and parameter XML write is only kept
 * within each end's own limits.
 */
class ZORVAPARSER_EXPORT ZorvaFrequencyRangeEdit : public ZorvaDelegate
{
    Q_OBJECT

public:
    /** @p widget is the owning row, never owned nor null. */
    explicit ZorvaFrequencyRangeEdit(ZorvaWidget* widget);
    ~ZorvaFrequencyRangeEdit() override;

    void CreateValueTree() override;
    void LetValuesGo() override;
    void CreateGUI(FloatGroupLayout* layout) override;
    void GetXml(QXmlStreamWriter& writer) const override;
    void ReadXml(QXmlStreamReader& reader) override;
    /** The start value only. */
    values::ValueBase* GetVTValue() const override;

    /** Start and stop from the values, cut to whole hertz; 0 for a value that does not exist. */
    QPair<qint64, qint64> getCurrentRange() const;

Q_SIGNALS:
    /** Behind rangeChanged(). */
    void editingFinished();
    /** The user or the tree changed one of the two, in hertz. */
    void rangeChanged(qlonglong startFrequency, qlonglong stopFrequency);
    /** Never comes; kept for forms that connect to it. */
    void returnPressed();
    /** Never emitted, both of them: scripts connect to them. */
    void startFrequencyUnitChanged(QString unit);
    /** Never comes; kept for forms that connect to it. */
    void stopFrequencyUnitChanged(QString unit);

public Q_SLOTS:
    /** These three do nothing: descriptions and scripts call them. */
    void addValidBand(QString a_name, qlonglong a_lowBound, qlonglong a_highBound);
    /** Does nothing; kept for forms that call it. */
    void clearValidBands();
    void autosetUnitScale(); ///< Likewise.
    /** Gives the first control the keyboard focus, once there is one. */
    void setFocus() override;
    /** Limits of both frequencies, in hertz. */
    void setMaximum(qlonglong value);
    void setMinimum(qlonglong value); ///< Likewise.
    /** Sets both, in hertz; no signal, no mark. */
    void setRange(qlonglong a_startFrequency, qlonglong a_stopFrequency);
    /** Sets the one, in hertz; no signal, no mark. */
    void setStartFrequency(qlonglong fValue);
    /** The element that the start is written to and read from. */
    void setStartFrequencyParameterXmlTag(QString sTag);
    /** Stored for scripts. */
    void setStartFrequencyUnitScale(QString a_unitstring);
    void setStartFrequencyUnitScale(qulonglong a_value); ///< Likewise.
    /** Sets the one, in hertz; no signal, no mark. */
    void setStopFrequency(qlonglong fValue);
    /** The element that the stop is written to and read from. */
    void setStopFrequencyParameterXmlTag(QString sTag);
    /** Stored for scripts. */
    void setStopFrequencyUnitScale(QString a_unitstring);
    void setStopFrequencyUnitScale(qulonglong a_value); ///< Likewise.
    /** Stored for scripts. */
    void setUnitHidden(bool flag);
    /** Commits text that is still being typed in either control. */
    void forceFinishEditing() override;

private Q_SLOTS:
    void SlotTextEdited(QString text = QString());
    /** Reached through the meta-object only. */
    void SlotReturnPressed();

public:
    void Update(Observable* observable, TChangeCode code) override;

protected:
    void PropertyChanged(const QString& name, const QVariant& value) override;

private:
    void NoteGivenLimits();
    void ConfirmRange(qint64 start, qint64 stop);
    void StartChanged();
    void StopChanged();
    void LimitChanged(const QString& name, double limit);
    VCLineEdit* CreateEdit(FloatGroupLayout* layout, const char* suffix, values::NumericDouble* value,
                           const QString& toolTip);
    void ConnectEdit(VCLineEdit* edit);

    values::NumericDouble* startFrequencyValue; // owned; null once the tree deleted it
    values::NumericDouble* stopFrequencyValue;  // likewise
    QPointer<VCLineEdit> startFrequencyEdit;    // owned by its parent widget
    QPointer<VCLineEdit> stopFrequencyEdit;     // likewise
    // Making a value fills in limits of its own, which are none that anybody gave.
    bool minimumGiven;
    bool maximumGiven;
};

} // namespace Orvane

#endif
