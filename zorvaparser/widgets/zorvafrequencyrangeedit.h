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
    explicit ZorvaFrequencyRangeEdit(ZorvaWidget* widget);
    ~ZorvaFrequencyRangeEdit() override;

    void CreateValueTree() override;
    void CreateGUI(FloatGroupLayout* layout) override;
    void GetXml(QXmlStreamWriter& writer) const override;
    void ReadXml(QXmlStreamReader& reader) override;
    /** The start value only. */
    values::ValueBase* GetVTValue() const override;

    /** Start and stop from the values, cut to whole hertz; 0 for a value that does not exist. */
    QPair<qint64, qint64> getCurrentRange() const;

Q_SIGNALS:
    void editingFinished();
    void rangeChanged(qlonglong startFrequency, qlonglong stopFrequency);
    void returnPressed();
    /** Never emitted, both of them: scripts connect to them. */
    void startFrequencyUnitChanged(QString unit);
    void stopFrequencyUnitChanged(QString unit);

public Q_SLOTS:
    /** These three do nothing: descriptions and scripts call them. */
    void addValidBand(QString a_name, qlonglong a_lowBound, qlonglong a_highBound);
    void clearValidBands();
    void autosetUnitScale();
    void setFocus() override;
    void setMaximum(qlonglong value);
    void setMinimum(qlonglong value);
    void setRange(qlonglong a_startFrequency, qlonglong a_stopFrequency);
    void setStartFrequency(qlonglong fValue);
    void setStartFrequencyParameterXmlTag(QString sTag);
    void setStartFrequencyUnitScale(QString a_unitstring);
    void setStartFrequencyUnitScale(qulonglong a_value);
    void setStopFrequency(qlonglong fValue);
    void setStopFrequencyParameterXmlTag(QString sTag);
    void setStopFrequencyUnitScale(QString a_unitstring);
    void setStopFrequencyUnitScale(qulonglong a_value);
    void setUnitHidden(bool flag);
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
    void ReleaseValues();
    void NoteGivenLimits();
    void ConfirmRange(bool changed, qint64 start, qint64 stop);
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
