#include "zorvadscobject.h"

#include "exclusionranges_p.h"
#include "exclusionrangesdialog.h"
#include "scaledfrequency_p.h"

#include <zorvaparser/numbertext_p.h>
#include <zorvaparser/rowwatch_p.h>
#include <zorvaparser/zorvasheet.h>
#include <zorvaparser/zorvawidget.h>

#include <QXmlStreamWriter>

namespace Orvane {

namespace {

const ExclusionRangeNames xmlNames{QLatin1String("ExclusionFrequency"), QLatin1String("Start"),
                                   QLatin1String("Stop"), true};

const struct
{
    QLatin1String element;
    QLatin1String label;
} bands[] = {{QLatin1String("HFScan"), QLatin1String("lbScanHF")},
             {QLatin1String("VUHFScan"), QLatin1String("lbScanVUHF")},
             {QLatin1String("SHFScan"), QLatin1String("lbScanSHF")}};

QString labelOfBand(const QStringRef& element)
{
    for (const auto& band : bands) {
        if (element == band.element)
            return band.label;
    }
    return QString();
}

void writeFrequency(QXmlStreamWriter& writer, QLatin1String element, double hertz)
{
    writer.writeStartElement(element);
    writer.writeAttribute(QStringLiteral("unit"), QStringLiteral("Hz"));
    writer.writeCharacters(fixedText(hertz, 0));
    writer.writeEndElement();
}

} // namespace

ZorvaDSCObject::ZorvaDSCObject(ZorvaWidget* ownerWidget)
    : ZorvaDelegate(ownerWidget)
    , exclusionFrequencies(nullptr)
{
}

ZorvaDSCObject::~ZorvaDSCObject()
{
    ZorvaDSCObject::LetValuesGo();
}

void ZorvaDSCObject::ParseProperties(QXmlStreamReader& reader, bool custom)
{
    ZorvaDelegate::ParseProperties(reader, custom);
    if (custom)
        setProperty("parameterXmlTag", exclusionRangesTag(customProperty(QStringLiteral("customXmlTag")),
                                                          QLatin1String("ExclusionFrequencyList")));
    else
        generateParameterXml = true;
}

void ZorvaDSCObject::LetValuesGo()
{
    ReleaseValue(exclusionFrequencies);
}

void ZorvaDSCObject::CreateValueTree()
{
    LetValuesGo();
    exclusionFrequencies = new values::ValueCommentedRangeMap(GetXmlTagName(), ValueState::Normal);
    EnterTree(exclusionFrequencies);
    ObserveValue(exclusionFrequencies);
}

void ZorvaDSCObject::CreateGUI(FloatGroupLayout*)
{
    connect(this, &ZorvaDSCObject::si_editExclusionRangesBtnClicked, this,
            &ZorvaDSCObject::sl_editExclusionRanges, Qt::UniqueConnection);
}

void ZorvaDSCObject::GetXml(QXmlStreamWriter& writer) const
{
    if (!exclusionFrequencies)
        return;
    writer.writeStartElement(GetXmlTagName());
    int index = 0;
    for (const auto& entry : exclusionFrequencies->data()) {
        writer.writeStartElement(xmlNames.item);
        writer.writeAttribute(QStringLiteral("index"), QString::number(index++));
        writeFrequency(writer, xmlNames.start, entry.second.GetRangeStart());
        writeFrequency(writer, xmlNames.stop, entry.second.GetRangeStop());
        writer.writeEndElement();
    }
    writer.writeEndElement();
}

void ZorvaDSCObject::ReadXml(QXmlStreamReader& reader)
{
    if (exclusionFrequencies)
        readExclusionRanges(reader, exclusionFrequencies, xmlNames, this);
}

void ZorvaDSCObject::sl_editExclusionRanges()
{
    if (!exclusionFrequencies)
        return;
    const RowWatch row(*this);
    ZorvaSheet* const sheet = GetSheet();
    editExclusionRanges(
        sheet ? sheet->GetGUI() : nullptr, exclusionFrequencies,
        {tr("Excluded ranges (kHz)"), tr("&Sort"), tr("Sort entries by start frequency in ascending order")});
}

void ZorvaDSCObject::sl_setScanRanges(QString value)
{
    const RowWatch row(*this);
    for (const auto& band : bands)
        SetLabelText(band.label, QStringLiteral("-"));
    QXmlStreamReader reader(value);
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == QLatin1String("Scan"))
            ReadScan(reader);
    }
}

void ZorvaDSCObject::ReadScan(QXmlStreamReader& reader)
{
    walkChildren(reader, [&] {
        const QString labelName = labelOfBand(reader.name());
        if (labelName.isEmpty())
            reader.skipCurrentElement();
        else
            ReadBand(reader, labelName);
    });
}

void ZorvaDSCObject::ReadBand(QXmlStreamReader& reader, const QString& labelName)
{
    QString text;
    int possible = 0;
    // An unknown element is not skipped, and its end tag ends the band.
    walkChildren(reader, [&] {
        if (reader.name() == QLatin1String("ScanPossible"))
            possible = reader.readElementText().toInt();
        else if (reader.name() == QLatin1String("ScanStartFrequency"))
            text += FrequencyText(reader.readElementText().toDouble());
        else if (reader.name() == QLatin1String("ScanStopFrequency"))
            text += QLatin1String("...") + FrequencyText(reader.readElementText().toDouble());
    });
    SetLabelText(labelName, possible > 0 ? text : QStringLiteral("-"));
}

QString ZorvaDSCObject::FrequencyText(double hertz)
{
    const ScaledFrequency scaled = scaledFrequency(hertz);
    return formatString(scaled.number, scaled.decimals, scaled.suffix);
}

void ZorvaDSCObject::SetLabelText(const QString& labelName, const QString& text)
{
    ZorvaSheet* const sheet = GetSheet();
    const ZorvaSheet::WidgetPointer row = sheet ? sheet->GetWidget(labelName) : ZorvaSheet::WidgetPointer();
    if (row && row->GetDelegate())
        row->GetDelegate()->setProperty("text", text);
}

void ZorvaDSCObject::emitEditExclusionRangesBtnClicked()
{
    Raise(&ZorvaDSCObject::si_editExclusionRangesBtnClicked);
}

void ZorvaDSCObject::emitEditScriptBtnClicked()
{
    Raise(&ZorvaDSCObject::si_editScriptBtnClicked);
}

void ZorvaDSCObject::emitLoadProdCriteriaBtnClicked()
{
    Raise(&ZorvaDSCObject::si_loadProdCriteriaBtnClicked);
}

void ZorvaDSCObject::emitLoadSpectralDetectorDataClicked()
{
    Raise(&ZorvaDSCObject::si_loadSpectralDetectorDataClicked);
}

void ZorvaDSCObject::emitSpectralDetectorProcStatusToggled(bool status)
{
    Raise(&ZorvaDSCObject::si_spectralDetectorProcStatusToggled, status);
}

void ZorvaDSCObject::Update(Observable* observable, TChangeCode code)
{
    if (HasNewContent(exclusionFrequencies, observable, code))
        setModified(true);
}

} // namespace Orvane
