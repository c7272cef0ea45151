#include "zorvadelegate.h"

#include "bounds_p.h"
#include "sharedproperties_p.h"

#include <zorvaparser/zorvaenum.h>

#include <valueframework/tree.h>
#include <vkbase/errorhandler.h>
#include <vkbase/qtrace.h>

#include <cmath>

namespace Orvane {

namespace {

bool isSameNumber(double left, double right)
{
    return left == right || (std::isnan(left) && std::isnan(right));
}

} // namespace

template <typename V>
V* ZorvaDelegate::PrepareValue(V* value)
{
    value->SetTranslationNamespace(objectName().toLatin1(), nullptr);
    return value;
}

bool ZorvaDelegate::EnterTree(values::ValueBase* value)
{
    if (values::Tree::Instance()->AddValue(GetVTNodePath(), value))
        return true;
    TracePlaceTaken(value->GetName());
    return false;
}

void ZorvaDelegate::TracePlaceTaken(const QString& name) const
{
    if (ErrorHandler::Traces(ErrorHandler::TraceNotes))
        _Q_Trace(QStringLiteral("The place %1/%2 in the value tree is taken: %3 is left without it")
                     .arg(vtPath.left(vtPath.lastIndexOf(QLatin1Char('/'))), name, objectName()),
                 QStringLiteral("zorvadelegate"), __LINE__);
}

template <typename V>
V* ZorvaDelegate::InsertValue(V* value)
{
    if (EnterTree(value))
        return value;
    delete value;
    return nullptr;
}

QString ZorvaDelegate::ValueName(int index)
{
    const QString name = GetVTName();
    return index < 0 ? name : name + QLatin1Char('_') + QString::number(index);
}

values::ValueBool* ZorvaDelegate::CreateValueBoolean(const QString& name)
{
    auto* const value = PrepareValue(new values::ValueBool(GetVTName(), ValueState::Normal));
    value->SetValue(property(name.toLatin1().constData()).toBool(), nullptr);
    return InsertValue(value);
}

values::ValueString* ZorvaDelegate::CreateValueString(const QString& name)
{
    auto* const value = PrepareValue(new values::ValueString(GetVTName(), ValueState::Normal));
    value->SetValue(PropertyText(name.toLatin1().constData()), nullptr);
    // A text that finds its place taken lives outside the tree.
    EnterTree(value);
    return value;
}

values::NumericDouble* ZorvaDelegate::CreateValueNumericFloat(const QString& name, int index)
{
    auto* const value = PrepareValue(new values::NumericDouble(ValueName(index), ValueState::Normal));
    TakeStandingLimits(value);
    ConfigureValueNumeric(value);
    value->SetValue(GetDouble(name, 0.0), nullptr);
    return InsertValue(value);
}

values::NumericInt* ZorvaDelegate::CreateValueNumericInt(const QString& name, int index)
{
    auto* const value = PrepareValue(new values::NumericInt(ValueName(index), ValueState::Normal));
    TakeStandingLimits(value);
    ConfigureValueNumeric(value);
    value->SetValue(GetInt(name, 0), nullptr);
    return InsertValue(value);
}

values::ValueSelection*
ZorvaDelegate::CreateValueSelection(const QString& name, QExplicitlySharedDataPointer<ZorvaEnum> enumeration)
{
    if (!enumeration)
        return nullptr;
    auto* const value = PrepareValue(new values::ValueSelection(
        GetVTName() + QLatin1Char('_') + enumeration->GetName(), ValueState::Normal));
    value->Reserve(enumeration->GetValueCount());
    for (int i = 0; i < enumeration->GetValueCount(); ++i) {
        const ZorvaEnumValue& entry = enumeration->GetValueAt(i);
        value->AddItem(entry.GetDisplayName(), entry.GetDoubleValue(i), i + 1, nullptr);
    }
    const QString text = PropertyText(name.toLatin1().constData());
    const ZorvaEnumValue& current = enumeration->FindValue(text, nullptr);
    value->SetStringValue(current.GetDisplayName(), this);
    ChangeProperty(name, current.GetValue());
    return InsertValue(value);
}

bool ZorvaDelegate::TakeConverted(const char* name, const char* marker, double& number, double factor,
                                  double offset)
{
    const QVariant last = property(marker);
    if (last.isValid() && isSameNumber(number, last.toDouble()))
        return false;
    number = reverseDisplayTransformation(number, factor, offset);
    // The marker first: writing the property comes back here, and must find nothing to do.
    SetProperty(marker, number);
    SetProperty(name, number);
    return true;
}

// Limits are converted once a row, but each of its values needs them.
void ZorvaDelegate::TakeStandingLimits(values::IValueNumeric* value)
{
    const QVariant minimum = property("q_internalLastMinimum");
    if (!minimum.isValid())
        return;
    value->SetMin(minimum.toDouble(), this);
    value->SetMax(property("q_internalLastMaximum").toDouble(), this);
    value->SetStep(property("q_internalLastSingleStep").toDouble(), this);
}

void ZorvaDelegate::ConfigureValueNumeric(values::IValueNumeric* value)
{
    if (!value)
        return;
    // Each setter tells observers, and one of them may remove the value.
    values::ValueBase* const told = value->AsValueBase();
    const ObservableGuard guard(told);
    const auto isThere = [&] { return !told || guard.Get(); };
    double step = GetDouble("singleStep", 1.0);
    double minimum = GetDouble("minimum", noMinimum);
    double maximum = GetDouble("maximum", noMaximum);
    const double factor = GetDouble("displayScalingFactor", 1.0);
    const double offset = GetDouble("displayAdditiveOffset", 0.0);
    if (TakeConverted("minimum", "q_internalLastMinimum", minimum, factor, offset) && isThere())
        value->SetMin(minimum, this);
    if (TakeConverted("maximum", "q_internalLastMaximum", maximum, factor, offset) && isThere())
        value->SetMax(maximum, this);
    if (TakeConverted("singleStep", "q_internalLastSingleStep", step, factor, 0.0) && isThere()) {
        sharePropertyNames(*this); // the markers are new
        value->SetStep(step, this);
    }
}

} // namespace Orvane
