#include "zorvafhpobject.h"

#include "exclusionranges_p.h"
#include "exclusionrangesdialog.h"

#include <valueframework/tree.h>
#include <vkbase/errorhandler.h>
#include <vkbase/qtrace.h>
#include <zorvaparser/numbertext_p.h>
#include <zorvaparser/rowwatch_p.h>
#include <zorvaparser/zorvasheet.h>

#include <QXmlStreamWriter>

namespace Orvane {

namespace {

const ExclusionRangeNames xmlNames{QLatin1String("ExclusionRange"), QLatin1String("StartFreq"),
                                   QLatin1String("StopFreq"), false};

QString frequencyText(double hertz)
{
    return fixedText(hertz, 2);
}

} // namespace

ZorvaFHPObject::ZorvaFHPObject(ZorvaWidget* ownerWidget)
    : ZorvaDelegate(ownerWidget)
    , exclusionRanges(this)
{
}

ZorvaFHPObject::~ZorvaFHPObject()
{
    ZorvaFHPObject::LetValuesGo();
}

void ZorvaFHPObject::RemoveMap()
{
    if (!exclusionRanges)
        return;
    const QString path = exclusionRanges->GetPathName();
    if (!path.isEmpty())
        values::Tree::Instance()->RemoveValue(path);
    else
        delete exclusionRanges.Get(); // without a name or a place the tree cannot find it
    exclusionRanges.Set(nullptr);
}

void ZorvaFHPObject::ParseProperties(QXmlStreamReader& reader, bool custom)
{
    ZorvaDelegate::ParseProperties(reader, custom);
    if (custom)
        setProperty("parameterXmlTag", exclusionRangesTag(customProperty(QStringLiteral("customXmlTag")),
                                                          QLatin1String("ExclusionRanges")));
    else
        generateParameterXml = true;
}

void ZorvaFHPObject::LetValuesGo()
{
    RemoveMap();
}

void ZorvaFHPObject::CreateValueTree()
{
    LetValuesGo();
    const QString path = GetVTNodePath() + QLatin1Char('/') + GetXmlTagName();
    if (exclusionRanges.Create(path) || !exclusionRanges) {
        NoteMissingPlace();
        return;
    }
    if (ErrorHandler::Traces(ErrorHandler::TraceNotes))
        _Q_Trace(
            QStringLiteral("ZorvaFHPObject::CreateValueTree: exclusion ranges map already existing in VT"),
            QStringLiteral("zorvafhpobject"), __LINE__);
    exclusionRanges->Clear(this);
}

// The row works without a place in the tree as well, on a map of its own.
void ZorvaFHPObject::NoteMissingPlace()
{
    if (!exclusionRanges)
        exclusionRanges.Set(new values::ValueCommentedRangeMap(GetXmlTagName(), ValueState::Normal));
    if (exclusionRanges->GetPathName().isEmpty())
        TracePlaceTaken(GetXmlTagName());
}

void ZorvaFHPObject::CreateGUI(FloatGroupLayout*)
{
    connect(this, &ZorvaFHPObject::si_editEditExclusionRangesBtnClicked, this,
            &ZorvaFHPObject::sl_editExclusionRanges, Qt::UniqueConnection);
}

void ZorvaFHPObject::GetXml(QXmlStreamWriter& writer) const
{
    if (!exclusionRanges)
        return;
    writer.writeStartElement(GetXmlTagName());
    for (const auto& entry : exclusionRanges->data()) {
        writer.writeStartElement(xmlNames.item);
        writer.writeTextElement(xmlNames.start, frequencyText(entry.second.GetRangeStart()));
        writer.writeTextElement(xmlNames.stop, frequencyText(entry.second.GetRangeStop()));
        writer.writeEndElement();
    }
    writer.writeEndElement();
}

void ZorvaFHPObject::ReadXml(QXmlStreamReader& reader)
{
    if (exclusionRanges)
        readExclusionRanges(reader, exclusionRanges.Get(), xmlNames, this);
}

void ZorvaFHPObject::sl_editExclusionRanges()
{
    if (!exclusionRanges)
        return;
    const RowWatch row(*this);
    ZorvaSheet* const sheet = GetSheet();
    editExclusionRanges(
        sheet ? sheet->GetGUI() : nullptr, exclusionRanges.Get(),
        {tr("Excluded ranges (kHz)"), tr("&Sort"), tr("Sort entries by start frequency in ascending order")});
}

void ZorvaFHPObject::emitEditExclusionRangesBtnClicked()
{
    Raise(&ZorvaFHPObject::si_editEditExclusionRangesBtnClicked);
}

void ZorvaFHPObject::Update(Observable* observable, TChangeCode code)
{
    if (IsContentChange(exclusionRanges.Get(), observable, code))
        setModified(true);
}

} // namespace Orvane
