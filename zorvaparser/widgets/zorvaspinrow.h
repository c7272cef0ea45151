#ifndef ZORVASPINROW_H
#define ZORVASPINROW_H

#include "valuelist_p.h"

#include <basicvaluewidgets/vcnumericfloatspin.h>
#include <valueframework/valuenumeric.h>
#include <zorvaparser/zorvadelegate.h>

#include <QList>
#include <QPointer>
#include <QWidget>

#include <type_traits>

namespace Orvane {

/**
 * What the rows of spin controls do alike, those of one control and those of a list.
 * It has no members: values and controls stand in the kinds, which say what type of
 * number they hold, how it is read and written, and what they raise.
 */
class ZorvaSpinRow : public ZorvaDelegate
{
protected:
    using ZorvaDelegate::ZorvaDelegate;

    using Control = QPointer<VCNumericFloatSpin>; // owned by the widget tree
    /** The base's tool tip for the kind's type of number. */
    using RangeToolTip = void (ZorvaDelegate::*)(QWidget* control);

    /** "decimals", kept below what any double can need. */
    int Decimals() const;

    // Rows of one control, which may be null as its value may.

    /** Makes @p value anew from the property "value", and lets @p control show it. */
    template <typename V>
    void MakeValue(V*& value, const Control& control)
    {
        ReleaseValue(value);
        value = ObserveValue(MakeNumber<V>(-1));
        if (control)
            control->SetNumericValue(value);
    }
    /** Makes @p control for @p value and ends the row with it. */
    void PlaceSpin(FloatGroupLayout* layout, Control& control, values::IValueNumeric* value,
                   const QString& name, RangeToolTip toolTip);
    /** Limits and step go to @p value, limits to the tool tip. */
    template <typename V>
    void FollowLimits(const QString& name, V*& value, const Control& control, RangeToolTip toolTip)
    {
        const bool isLimit = name == QLatin1String("minimum") || name == QLatin1String("maximum");
        if (isLimit || name == QLatin1String("singleStep"))
            ConfigureRowValue(value);
        if (isLimit)
            (this->*toolTip)(control);
    }
    /** What only numbers with fractions follow: "decimals" and "displayScalingFactor". */
    template <typename V>
    void FollowFraction(const QString& name, V*& value, const Control& control)
    {
        if (name == QLatin1String("displayScalingFactor"))
            ConfigureRowValue(value);
        else if (name == QLatin1String("decimals") && control)
            control->setAdditionalPrecision(Decimals());
    }
    /** The last step for each property: "suffix", "wrapping" and what is defined. */
    void FollowText(const QString& name, const QVariant& value, const Control& control);
    /** Carries offset, factor and unit scale to @p control. */
    void ConfigureSpinDisplay(VCNumericFloatSpin* control) const;

    // Rows of a list: values and controls in the order of the items. Both may be fewer
    // than the items, as a value may be refused and a control be gone.

    /** Makes @p count values anew, as far as a sheet can hold them, and lets @p controls show them. */
    template <typename V>
    void MakeValues(QList<V*>& values, const QList<Control>& controls, int count)
    {
        ReleaseValues(values, this);
        const int bounded = Bounded(count);
        for (int i = 0; i < bounded; ++i) {
            if (auto* const value = ObserveValue(MakeNumber<V>(i)))
                values.append(value);
        }
        for (int i = 0; i < controls.count(); ++i) {
            if (controls.at(i))
                controls.at(i)->SetNumericValue(values.value(i));
        }
    }
    /** Stacks a control for each value in @p container, which is made, and ends the row with it. */
    template <typename V>
    void PlaceSpins(FloatGroupLayout* layout, QPointer<QWidget>& container, QList<Control>& controls,
                    const QList<V*>& values, RangeToolTip toolTip)
    {
        controls.clear();
        container = MakeContainer();
        for (int i = 0; i < values.count(); ++i)
            controls.append(StackSpin(layout, container, values.at(i), i, toolTip));
        PlaceContainer(layout, container);
    }
    /** Defined properties reach all controls, the others none. */
    void FollowProperty(const QString& name, const QList<Control>& controls);
    /** False if there is no such control. */
    static bool IsEnabledAt(const QList<Control>& controls, int index);
    /** 0 if there is no such value. */
    template <typename V>
    static auto NumberAt(const QList<V*>& values, int index)
    {
        const auto* const value = values.value(index);
        return value ? value->GetValue() : 0;
    }
    /** Without an originator, so that the row hears of the change and marks itself. */
    template <typename V, typename Number>
    static void SetNumberAt(const QList<V*>& values, int index, Number number)
    {
        if (auto* const value = values.value(index))
            value->SetValue(number, nullptr);
    }

private:
    template <typename V>
    V* MakeNumber(int index)
    {
        if constexpr (std::is_same_v<V, values::NumericInt>)
            return CreateValueNumericInt(QStringLiteral("value"), index);
        else
            return CreateValueNumericFloat(QStringLiteral("value"), index);
    }
    VCNumericFloatSpin::Display SpinDisplay() const;
    VCNumericFloatSpin* CreateSpinControl(values::IValueNumeric* value, QWidget* parent,
                                          const QString& name) const;
    void Dress(VCNumericFloatSpin* control, RangeToolTip toolTip);
    static int Bounded(int count);
    QWidget* MakeContainer() const;
    VCNumericFloatSpin* StackSpin(FloatGroupLayout* layout, QWidget* container, values::IValueNumeric* value,
                                  int index, RangeToolTip toolTip);
    void PlaceContainer(FloatGroupLayout* layout, QWidget* container);
};

} // namespace Orvane

#endif
