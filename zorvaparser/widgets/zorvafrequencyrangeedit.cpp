#include "zorvafrequencyrangeedit.h"

#include <basicvaluewidgets/vclineedit.h>
#include <layout/floatgrouplayout.h>
#include <zorvaparser/numericcast_p.h>
#include <zorvaparser/zorvasheet.h>

#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <limits>

namespace Orvane {

namespace {

constexpr double lowestFrequency = 8000.0;
constexpr double highestFrequency = 26500000000.0;

qint64 wholeHertz(const values::NumericDouble* value)
{
    return value ? truncatedTo<qint64>(value->GetValue()) : 0;
}

bool isNumber(const QVariant& value)
{
    bool ok = false;
    value.toDouble(&ok);
    return ok;
}

void finishEdit(VCLineEdit* edit)
{
    if (edit && edit->isModified())
        edit->endEdit();
}

} // namespace

ZorvaFrequencyRangeEdit::ZorvaFrequencyRangeEdit(ZorvaWidget* ownerWidget)
    : ZorvaDelegate(ownerWidget)
    , startFrequencyValue(nullptr)
    , stopFrequencyValue(nullptr)
    , minimumGiven(false)
    , maximumGiven(false)
{
    DefineProperty(QStringLiteral("startFrequency"));
    DefineProperty(QStringLiteral("startFrequencyParameterXmlTag"));
    DefineProperty(QStringLiteral("stopFrequency"));
    DefineProperty(QStringLiteral("stopFrequencyParameterXmlTag"));
    DefineProperty(QStringLiteral("startFrequencyUnitScale"));
    DefineProperty(QStringLiteral("stopFrequencyUnitScale"));
}

ZorvaFrequencyRangeEdit::~ZorvaFrequencyRangeEdit()
{
    ZorvaFrequencyRangeEdit::LetValuesGo();
}

void ZorvaFrequencyRangeEdit::LetValuesGo()
{
    ReleaseValue(stopFrequencyValue);
    ReleaseValue(startFrequencyValue);
}

void ZorvaFrequencyRangeEdit::NoteGivenLimits()
{
    if (!property("q_internalLastMinimum").isValid())
        minimumGiven = isNumber(property("minimum"));
    if (!property("q_internalLastMaximum").isValid())
        maximumGiven = isNumber(property("maximum"));
}

void ZorvaFrequencyRangeEdit::CreateValueTree()
{
    LetValuesGo();
    NoteGivenLimits();
    startFrequencyValue = ObserveValue(CreateValueNumericFloat(QStringLiteral("startFrequency"), 1));
    const double min = minimumGiven ? GetDouble("minimum", lowestFrequency) : lowestFrequency;
    const double max = maximumGiven ? GetDouble("maximum", highestFrequency) : highestFrequency;
    // Each end leaves room for the other one, one hertz beside it.
    if (startFrequencyValue)
        startFrequencyValue->SetMinMax(min, max - 1, 1, this);
    stopFrequencyValue = ObserveValue(CreateValueNumericFloat(QStringLiteral("stopFrequency"), 2));
    if (stopFrequencyValue)
        stopFrequencyValue->SetMinMax(min + 1, max, 1, this);
    if (startFrequencyEdit)
        startFrequencyEdit->SetValueBase(startFrequencyValue);
    if (stopFrequencyEdit)
        stopFrequencyEdit->SetValueBase(stopFrequencyValue);
}

void ZorvaFrequencyRangeEdit::CreateGUI(FloatGroupLayout* layout)
{
    ZorvaDelegate::CreateGUI(layout);
    startFrequencyEdit = CreateEdit(layout, "_StartFrequency", startFrequencyValue, tr("Start Frequency"));
    stopFrequencyEdit = CreateEdit(layout, "_StopFrequency", stopFrequencyValue, tr("Stop Frequency"));
    layout->addGroup();
    ConnectEdit(startFrequencyEdit);
    ConnectEdit(stopFrequencyEdit);
}

VCLineEdit* ZorvaFrequencyRangeEdit::CreateEdit(FloatGroupLayout* layout, const char* suffix,
                                                values::NumericDouble* value, const QString& toolTip)
{
    auto* const edit = new VCLineEdit(layout->parentWidget(), nullptr, VCLineEdit::ekFrequencyText);
    edit->setObjectName(ControlName() + QLatin1String(suffix));
    edit->SetValueBase(value);
    edit->setToolTip(toolTip);
    PropagateProperties(edit);
    layout->addFieldOfSeveral(edit);
    NameControl(edit, toolTip);
    return edit;
}

void ZorvaFrequencyRangeEdit::ConnectEdit(VCLineEdit* edit)
{
    connect(edit, &QLineEdit::editingFinished, this, [this] { SlotTextEdited(); });
    connect(edit, &VCLineEdit::signalTextFinallyChanged, this, &ZorvaFrequencyRangeEdit::SlotTextEdited);
}

void ZorvaFrequencyRangeEdit::GetXml(QXmlStreamWriter& writer) const
{
    if (!generateParameterXml)
        return;
    writer.writeTextElement(PropertyText("startFrequencyParameterXmlTag"), PropertyText("startFrequency"));
    writer.writeTextElement(PropertyText("stopFrequencyParameterXmlTag"), PropertyText("stopFrequency"));
}

void ZorvaFrequencyRangeEdit::ReadXml(QXmlStreamReader& reader)
{
    if (reader.name() == PropertyText("startFrequencyParameterXmlTag"))
        setProperty("startFrequency", reader.readElementText());
    else if (reader.name() == PropertyText("stopFrequencyParameterXmlTag"))
        setProperty("stopFrequency", reader.readElementText());
}

values::ValueBase* ZorvaFrequencyRangeEdit::GetVTValue() const
{
    return startFrequencyValue;
}

QPair<qint64, qint64> ZorvaFrequencyRangeEdit::getCurrentRange() const
{
    return {wholeHertz(startFrequencyValue), wholeHertz(stopFrequencyValue)};
}

void ZorvaFrequencyRangeEdit::addValidBand(QString, qlonglong, qlonglong) {}

void ZorvaFrequencyRangeEdit::clearValidBands() {}

void ZorvaFrequencyRangeEdit::autosetUnitScale() {}

void ZorvaFrequencyRangeEdit::setFocus()
{
    FocusControl(startFrequencyEdit);
}

void ZorvaFrequencyRangeEdit::setMaximum(qlonglong value)
{
    ChangeProperty("maximum", value);
}

void ZorvaFrequencyRangeEdit::setMinimum(qlonglong value)
{
    ChangeProperty("minimum", value);
}

void ZorvaFrequencyRangeEdit::setRange(qlonglong a_startFrequency, qlonglong a_stopFrequency)
{
    if (Watched([&] { ChangeProperty("startFrequency", a_startFrequency); }))
        ChangeProperty("stopFrequency", a_stopFrequency);
}

void ZorvaFrequencyRangeEdit::setStartFrequency(qlonglong fValue)
{
    ChangeProperty("startFrequency", fValue);
}

void ZorvaFrequencyRangeEdit::setStartFrequencyParameterXmlTag(QString sTag)
{
    ChangeProperty("startFrequencyParameterXmlTag", sTag);
}

void ZorvaFrequencyRangeEdit::setStartFrequencyUnitScale(QString a_unitstring)
{
    ChangeProperty("startFrequencyUnitScale", a_unitstring);
}

void ZorvaFrequencyRangeEdit::setStartFrequencyUnitScale(qulonglong a_value)
{
    ChangeProperty("startFrequencyUnitScale", a_value);
}

void ZorvaFrequencyRangeEdit::setStopFrequency(qlonglong fValue)
{
    ChangeProperty("stopFrequency", fValue);
}

void ZorvaFrequencyRangeEdit::setStopFrequencyParameterXmlTag(QString sTag)
{
    ChangeProperty("stopFrequencyParameterXmlTag", sTag);
}

void ZorvaFrequencyRangeEdit::setStopFrequencyUnitScale(QString a_unitstring)
{
    ChangeProperty("stopFrequencyUnitScale", a_unitstring);
}

void ZorvaFrequencyRangeEdit::setStopFrequencyUnitScale(qulonglong a_value)
{
    ChangeProperty("stopFrequencyUnitScale", a_value);
}

void ZorvaFrequencyRangeEdit::setUnitHidden(bool flag)
{
    ChangeProperty("unitHidden", flag);
}

void ZorvaFrequencyRangeEdit::forceFinishEditing()
{
    if (Watched([&] { finishEdit(startFrequencyEdit); }))
        finishEdit(stopFrequencyEdit);
}

void ZorvaFrequencyRangeEdit::SlotTextEdited(QString)
{
    setModified(false);
}

void ZorvaFrequencyRangeEdit::SlotReturnPressed()
{
    ApplyAfter(&ZorvaFrequencyRangeEdit::returnPressed);
}

void ZorvaFrequencyRangeEdit::Update(Observable* observable, TChangeCode code)
{
    ForgetValue(stopFrequencyValue, observable, code);
    ForgetValue(startFrequencyValue, observable, code);
    if (!startFrequencyValue || !stopFrequencyValue)
        return;
    if (IsContentChange(startFrequencyValue, observable, code))
        StartChanged();
    else if (IsContentChange(stopFrequencyValue, observable, code))
        StopChanged();
}

void ZorvaFrequencyRangeEdit::StartChanged()
{
    const qint64 start = wholeHertz(startFrequencyValue);
    qint64 stop = wholeHertz(stopFrequencyValue);
    bool changed = false;
    const auto take = [&] {
        if (start >= stop) {
            stop = start + 1;
            changed = ChangeProperty("stopFrequency", stop);
        }
        changed = ChangeProperty("startFrequency", start) || changed;
    };
    if (Watched(take) && changed)
        ConfirmRange(start, stop);
}

void ZorvaFrequencyRangeEdit::StopChanged()
{
    qint64 start = wholeHertz(startFrequencyValue);
    const qint64 stop = wholeHertz(stopFrequencyValue);
    bool changed = false;
    const auto take = [&] {
        if (stop <= start) {
            start = stop - (stop > std::numeric_limits<qint64>::min() ? 1 : 0);
            changed = ChangeProperty("startFrequency", start);
        }
        changed = ChangeProperty("stopFrequency", stop) || changed;
    };
    if (Watched(take) && changed)
        ConfirmRange(start, stop);
}

void ZorvaFrequencyRangeEdit::ConfirmRange(qint64 start, qint64 stop)
{
    if (Raise(&ZorvaFrequencyRangeEdit::rangeChanged, start, stop) &&
        Raise(&ZorvaFrequencyRangeEdit::editingFinished))
        MarkModified();
}

void ZorvaFrequencyRangeEdit::PropertyChanged(const QString& name, const QVariant& value)
{
    ZorvaDelegate::PropertyChanged(name, value);
    if (name == QLatin1String("startFrequency")) {
        if (startFrequencyValue)
            startFrequencyValue->SetStringValue(VariantText(value), this);
    } else if (name == QLatin1String("stopFrequency")) {
        if (stopFrequencyValue)
            stopFrequencyValue->SetStringValue(VariantText(value), this);
    } else if (name == QLatin1String("minimum") || name == QLatin1String("maximum")) {
        LimitChanged(name, value.toDouble());
    } else if (name == QLatin1String("startFrequencyParameterXmlTag") ||
               name == QLatin1String("stopFrequencyParameterXmlTag")) {
        AddXmlTag(VariantText(value));
    }
    PropagateProperty(name, startFrequencyEdit);
    PropagateProperty(name, stopFrequencyEdit);
}

void ZorvaFrequencyRangeEdit::LimitChanged(const QString& name, double limit)
{
    const bool lower = name == QLatin1String("minimum");
    if (startFrequencyValue) {
        (lower ? minimumGiven : maximumGiven) = true;
        if (lower)
            startFrequencyValue->SetMin(limit, this);
        else
            startFrequencyValue->SetMax(limit - 1, this);
    }
    if (stopFrequencyValue) {
        if (lower)
            stopFrequencyValue->SetMin(limit + 1, this);
        else
            stopFrequencyValue->SetMax(limit, this);
    }
}

} // namespace Orvane
