#ifndef ZORVADSCOBJECT_H
#define ZORVADSCOBJECT_H

#include <valueframework/valuecommentedrangemap.h>
#include <zorvaparser/zorvadelegate.h>

namespace Orvane {

/**
 * A map of exclusion frequencies without a row of its own, always written to
 * parameter XML, and a relay between the form's script and the application:
 * clicks go out as signals, and a report of what can be scanned comes in as text
 * for three labels of the sheet.
 */
class ZorvaDSCObject : public ZorvaDelegate
{
    Q_OBJECT

public:
    explicit ZorvaDSCObject(ZorvaWidget* widget);
    ~ZorvaDSCObject() override;

    void CreateValueTree() override;
    void LetValuesGo() override;
    void CreateGUI(FloatGroupLayout* layout) override;
    void GetXml(QXmlStreamWriter& writer) const override;
    void ReadXml(QXmlStreamReader& reader) override;
    void ParseProperties(QXmlStreamReader& reader, bool custom) override;

Q_SIGNALS:
    void si_editExclusionRangesBtnClicked();
    void si_editScriptBtnClicked();
    void si_loadProdCriteriaBtnClicked();
    void si_loadSpectralDetectorDataClicked();
    void si_spectralDetectorProcStatusToggled(bool status);

public Q_SLOTS:
    /** Runs the dialog; returns when it is closed. */
    void sl_editExclusionRanges();
    /** @p value is a report in XML; what cannot be scanned, or read, shows as "-". */
    void sl_setScanRanges(QString value);

public:
    Q_INVOKABLE void emitEditExclusionRangesBtnClicked();
    Q_INVOKABLE void emitEditScriptBtnClicked();
    Q_INVOKABLE void emitLoadProdCriteriaBtnClicked();
    Q_INVOKABLE void emitLoadSpectralDetectorDataClicked();
    Q_INVOKABLE void emitSpectralDetectorProcStatusToggled(bool status);

    void Update(Observable* observable, TChangeCode code) override;

private:
    QString FrequencyText(double hertz);
    void ReadScan(QXmlStreamReader& reader);
    void ReadBand(QXmlStreamReader& reader, const QString& labelName);
    void SetLabelText(const QString& labelName, const QString& text);

    values::ValueCommentedRangeMap* exclusionFrequencies; // owned; null once the tree deleted it
};

} // namespace Orvane

#endif
