#include "zorvafrequencyedit.h"

#include <layout/floatgrouplayout.h>
#include <layout/markup.h>
#include <zorvaparser/guardedrollback_p.h>
#include <zorvaparser/numericcast_p.h>
#include <zorvaparser/rowwatch_p.h>
#include <zorvaparser/zorvasheet.h>

#include <QGridLayout>
#include <QIcon>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace Orvane {

ZorvaFrequencyEdit::ZorvaFrequencyEdit(ZorvaWidget* ownerWidget)
    : ZorvaDelegate(ownerWidget)
    , frequencyValue(nullptr)
    , lockButtonShown(false)
    , updatingLockButton(false)
{
}

ZorvaFrequencyEdit::~ZorvaFrequencyEdit()
{
    ZorvaFrequencyEdit::LetValuesGo();
}

void ZorvaFrequencyEdit::LetValuesGo()
{
    ReleaseValue(frequencyValue);
}

void ZorvaFrequencyEdit::CreateValueTree()
{
    LetValuesGo();
    frequencyValue = ObserveValue(CreateValueNumericFloat(QStringLiteral("value"), -1));
    BindControls();
}

void ZorvaFrequencyEdit::BindControls()
{
    if (frequencyControl) {
        frequencyControl->SetFrequency_ValuePath(frequencyValue ? frequencyValue->GetPathName() : QString());
        frequencyControl->SetBandwidth_ValuePath(GetVTNodePath() + QLatin1String("/Bandwidth"));
    }
    if (frequencyLineEdit)
        frequencyLineEdit->SetValueBase(frequencyValue);
}

bool ZorvaFrequencyEdit::IsMainForm() const
{
    const QVariant wish = property("MainFreqEdit");
    if (wish.isValid() && wish.canConvert<bool>())
        return wish.toBool();
    return GetXmlTagName() == QLatin1String("Frequency");
}

void ZorvaFrequencyEdit::CreateGUI(FloatGroupLayout* layout)
{
    ZorvaDelegate::CreateGUI(layout);
    if (IsMainForm())
        CreateMainForm(layout);
    else
        CreatePlainForm(layout);
}

void ZorvaFrequencyEdit::CreateMainForm(FloatGroupLayout* layout)
{
    QWidget* const parent = layout->parentWidget();
    CreateFrequencyControl(parent);
    CreateLockButton(parent);

    auto* const container = new QWidget(parent);
    container->setObjectName(QStringLiteral("FrequencyWidget"));
    auto* const grid = new QGridLayout(container);
    grid->setObjectName(QStringLiteral("FrequencyGrid"));
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(frequencyControl, 0, 0, 2, 2);
    grid->addWidget(lockButton, 1, 2, Qt::AlignVCenter);

    layout->addSpecial();
    PlaceControl(layout, container);
    NameControl(frequencyControl);
}

void ZorvaFrequencyEdit::CreateFrequencyControl(QWidget* parent)
{
    ZorvaSheet* const sheet = GetSheet();
    QWidget* const popupOwner = sheet ? sheet->GetGUI() : nullptr;
    frequencyControl = new VCFrequency(parent, "FrequencyControl", false, popupOwner, true);
    BindControls();
    if (VCButton* const tuneButton = frequencyControl->GetTuneButton())
        tuneButton->hide();
    PropagateProperties(frequencyControl);

    ApplyInput();
}

// Both gates count, also when one of them opens later.
void ZorvaFrequencyEdit::ApplyInput()
{
    if (!frequencyControl)
        return;
    const bool input = GetBool("enabled", false) && !GetBool("readOnly", false);
    frequencyControl->EnableInput(input);
    if (!input)
        frequencyControl->DisableButtons();
    for (VCMiniFrequency* const button :
         {frequencyControl->GetFrequencyButtonCtrl(), frequencyControl->GetHistoryButtonCtrl()}) {
        if (button)
            button->enable(input);
    }
    if (VCButton* const tuneButton = frequencyControl->GetTuneButton())
        tuneButton->setEnabled(input);
}

void ZorvaFrequencyEdit::CreateLockButton(QWidget* parent)
{
    lockButtonShown = false;
    lockButton = new QPushButton(QIcon(QStringLiteral(":/ZorvaParser/Unlocked.svg")), QString(), parent);
    lockButton->setObjectName(QStringLiteral("LockFrequency"));
    lockButton->setCheckable(true);
    lockButton->setFlat(true);
    lockButton->setFixedSize(20, 18);
    lockButton->hide();
    lockButton->setAccessibleName(tr("Lock frequency range"));
    connect(lockButton.data(), &QPushButton::toggled, this, &ZorvaFrequencyEdit::SlotLockButtonChecked);
}

void ZorvaFrequencyEdit::CreatePlainForm(FloatGroupLayout* layout)
{
    frequencyLineEdit = new VCLineEdit(layout->parentWidget(), nullptr, VCLineEdit::ekFrequencyText);
    frequencyLineEdit->setObjectName(ControlName());
    BindControls();
    frequencyLineEdit->setToolTip(Markup::toolTip(GetTranslated("labelText")));
    PropagateProperties(frequencyLineEdit);
    PlaceControl(layout, frequencyLineEdit);
    connect(frequencyLineEdit.data(), &QLineEdit::textEdited, this, &ZorvaFrequencyEdit::SlotTextEdited);
}

void ZorvaFrequencyEdit::GetXml(QXmlStreamWriter& writer) const
{
    if (generateParameterXml)
        WriteTextElement(writer, PropertyText("value"), true);
}

void ZorvaFrequencyEdit::ReadXml(QXmlStreamReader& reader)
{
    const QString text = reader.readElementText(QXmlStreamReader::ErrorOnUnexpectedElement);
    if (Raise(&ZorvaFrequencyEdit::valueChanged, static_cast<qlonglong>(text.toULongLong())))
        setProperty("value", text);
}

values::ValueBase* ZorvaFrequencyEdit::GetVTValue() const
{
    return frequencyValue;
}

void ZorvaFrequencyEdit::EnableInput(bool enable, bool restricted)
{
    const bool isThere = Watched([&] { ZorvaDelegate::EnableInput(enable, restricted); });
    if (isThere && !restricted && lockButton)
        lockButton->setEnabled(enable);
}

void ZorvaFrequencyEdit::autosetUnitScale() {}

void ZorvaFrequencyEdit::setDisplayOutOfRangeValues(bool flag)
{
    ChangeProperty("displayOutOfRangeValues", flag);
}

void ZorvaFrequencyEdit::setMaxHistoryLength(int value)
{
    ChangeProperty("maxHistoryLength", value);
}

void ZorvaFrequencyEdit::setMaximum(qlonglong value)
{
    ChangeProperty("maximum", value);
}

void ZorvaFrequencyEdit::setMinimum(qlonglong value)
{
    ChangeProperty("minimum", value);
}

void ZorvaFrequencyEdit::setUnitHidden(bool flag)
{
    ChangeProperty("unitHidden", flag);
}

void ZorvaFrequencyEdit::setUnitScale(QString value)
{
    ChangeProperty("unitScale", value);
}

void ZorvaFrequencyEdit::setUnitScale(qulonglong value)
{
    ChangeProperty("unitScale", value);
}

void ZorvaFrequencyEdit::setUseHistory(bool flag)
{
    ChangeProperty("history", flag);
}

void ZorvaFrequencyEdit::setUseUniformHeights(bool flag)
{
    ChangeProperty("uniformHeights", flag);
}

void ZorvaFrequencyEdit::setValue(qlonglong value)
{
    ChangeProperty("value", value);
}

void ZorvaFrequencyEdit::setFocus()
{
    FocusControl(frequencyControl);
    FocusControl(frequencyLineEdit);
}

void ZorvaFrequencyEdit::forceFinishEditing()
{
    if (frequencyLineEdit)
        frequencyLineEdit->endEdit();
}

void ZorvaFrequencyEdit::SlotTextEdited(QString)
{
    setModified(false);
}

void ZorvaFrequencyEdit::SlotReturnPressed()
{
    ApplyAfter(&ZorvaFrequencyEdit::returnPressed);
}

void ZorvaFrequencyEdit::SlotLockButtonChecked(bool checked)
{
    if (lockButton && !updatingLockButton)
        Raise(&ZorvaFrequencyEdit::si_lockButtonToggled, checked);
}

void ZorvaFrequencyEdit::Update(Observable* observable, TChangeCode code)
{
    if (!HasNewContent(frequencyValue, observable, code))
        return;
    const qlonglong hertz = truncatedTo<qint64>(frequencyValue->GetValue());
    AnswerChange("value", hertz, Signal(&ZorvaFrequencyEdit::valueChanged, hertz),
                 Signal(&ZorvaFrequencyEdit::editingFinished));
}

void ZorvaFrequencyEdit::PropertyChanged(const QString& name, const QVariant& value)
{
    ZorvaDelegate::PropertyChanged(name, value);
    if (name == QLatin1String("value")) {
        if (frequencyValue)
            frequencyValue->SetStringValue(VariantText(value), this);
    } else if (name == QLatin1String("minimum")) {
        if (frequencyValue)
            frequencyValue->SetMin(value.toDouble(), this);
    } else if (name == QLatin1String("maximum")) {
        if (frequencyValue)
            frequencyValue->SetMax(value.toDouble(), this);
    } else if (name == QLatin1String("FrequencyLock")) {
        ShowLock(value.toBool());
    }
    PropagateProperty(name, frequencyControl);
    PropagateProperty(name, frequencyLineEdit);
    if (name == QLatin1String("enabled") || name == QLatin1String("readOnly"))
        ApplyInput();
    if (lockButtonShown && name == QLatin1String("visible"))
        PropagateProperty(name, lockButton);
}

void ZorvaFrequencyEdit::ShowLock(bool locked)
{
    if (!lockButton)
        return;
    const GuardedRollback<RowWatch, bool> guard(*this, updatingLockButton, true);
    if (!lockButtonShown) {
        lockButtonShown = true;
        lockButton->show();
    }
    lockButton->setChecked(locked);
    // The tool tip names what a click would do.
    lockButton->setToolTip(locked ? tr("Unlock frequency range") : tr("Lock frequency range"));
    lockButton->setAccessibleName(lockButton->toolTip());
    lockButton->setIcon(QIcon(locked ? QStringLiteral(":/ZorvaParser/Locked.svg")
                                     : QStringLiteral(":/ZorvaParser/Unlocked.svg")));
}

} // namespace Orvane
