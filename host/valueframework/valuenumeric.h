#ifndef ZORVA_VALUEFRAMEWORK_VALUENUMERIC_H
#define ZORVA_VALUEFRAMEWORK_VALUENUMERIC_H

#include <valueframework/value.h>
#include <valueframework/valueframework_export.h>

#include <limits>
#include <type_traits>

namespace values {

/// A number with limits and a step, whatever its type: all in double. Numbers
/// out of the range of the type become its nearest end, fractions are cut off
/// for whole types, NaN is ignored. Who is told, and of what, is as for
/// `ValueNumeric`. Reach the observable side by `AsValueBase`.
class VALUEFRAMEWORK_EXPORT IValueNumeric
{
public:
    virtual ~IValueNumeric();

    /// Limits, step and content, whatever the type of the number.
    double GetMin() const { return minAsDouble(); }
    double GetMax() const { return maxAsDouble(); }     ///< Likewise.
    double GetStep() const { return stepAsDouble(); }   ///< Likewise.
    double GetValue() const { return valueAsDouble(); } ///< Likewise.
    /// Sets one of them; true if it changed. @p originator is the one who is not told; null tells all.
    bool SetMin(double min, IObserver* originator) { return setMinFromDouble(min, originator); }
    /// Likewise.
    bool SetMax(double max, IObserver* originator) { return setMaxFromDouble(max, originator); }
    /// Likewise.
    bool SetStep(double step, IObserver* originator) { return setStepFromDouble(step, originator); }
    /// Likewise.
    bool SetValue(double value, IObserver* originator) { return setValueFromDouble(value, originator); }

    /// This number as the value it is; never null.
    virtual ValueBase* AsValueBase() = 0;
    /// The value itself, never null.
    virtual const ValueBase* AsValueBase() const = 0;

protected:
    /// What the getters of the interface ask the type for.
    virtual double minAsDouble() const = 0;
    virtual double maxAsDouble() const = 0;   ///< Likewise.
    virtual double stepAsDouble() const = 0;  ///< Likewise.
    virtual double valueAsDouble() const = 0; ///< Likewise.
    /// What the setters of the interface hand to the type; @p originator is not told, null tells all.
    virtual bool setMinFromDouble(double min, IObserver* originator) = 0;
    virtual bool setMaxFromDouble(double max, IObserver* originator) = 0;     ///< Likewise.
    virtual bool setStepFromDouble(double step, IObserver* originator) = 0;   ///< Likewise.
    virtual bool setValueFromDouble(double value, IObserver* originator) = 0; ///< Likewise.
};

/// A number that is kept between a minimum and a maximum.
///
/// Limits are stored as given, a minimum above the maximum too (then the
/// minimum wins); at first they span the type, and the step is 1. A change of
/// limits or step tells of `ChangeCode::Limits`, and if the content had to
/// follow, of `ChangeCode::Content` after that. NaN is ignored, infinity is the
/// nearest limit. Every setter takes any number type, converted as
/// `convertNumber` says, and returns whether it changed something.
template <typename T, typename Format, typename Stream>
class VALUEFRAMEWORK_EXPORT ValueNumeric : public Value<T, Format, Stream>, public IValueNumeric
{
    template <typename N>
    using OtherNumber = std::enable_if_t<std::is_arithmetic<N>::value && !std::is_same<N, T>::value>;

public:
    /// What holds the number.
    using Base = Value<T, Format, Stream>;
    using Base::Base;
    ~ValueNumeric() override { this->retire(); }

    /// The content.
    using Base::GetValue;
    /// The limits, and the step, in value units.
    T GetMin() const { return m_min; }
    T GetMax() const { return m_max; }   ///< Likewise.
    T GetStep() const { return m_step; } ///< Likewise.

    /// Tells all but @p originator, who may be null, of `ChangeCode::Content` if the number, kept within the
    /// limits, is new.
    bool SetValue(T value, IObserver* originator) override
    {
        return convertNumber(value, &value) && Base::SetValue(bounded(value), originator);
    }
    /// Sets one of them with code 6, and 3 if the content had to follow; @p originator is not told, null
    /// tells all.
    bool SetMin(T min, IObserver* originator) { return SetMinMax(min, m_max, m_step, originator); }
    /// Likewise.
    bool SetMax(T max, IObserver* originator) { return SetMinMax(m_min, max, m_step, originator); }
    /// Likewise.
    bool SetStep(T step, IObserver* originator) { return SetMinMax(m_min, m_max, step, originator); }
    /// Limits and step in one go, told once; @p originator is not told, null tells all.
    bool SetMinMax(T min, T max, T step, IObserver* originator)
    {
        const bool minChanged = replace(&m_min, min);
        const bool maxChanged = replace(&m_max, max);
        const bool stepChanged = replace(&m_step, step);
        if (!minChanged && !maxChanged && !stepChanged)
            return false;
        const bool contentChanged = this->store(bounded(this->GetValue()));
        if (this->HasChanged(ChangeCode::Limits, originator) && contentChanged)
            this->HasChanged(ChangeCode::Content, originator);
        return true;
    }

    template <typename N, typename = OtherNumber<N>>
    /// The same for numbers of other types, which saturate at the ends of this one.
    bool SetValue(N value, IObserver* originator)
    {
        T number = T();
        return convertNumber(value, &number) && SetValue(number, originator);
    }
    /// Likewise.
    template <typename N, typename = OtherNumber<N>>
    bool SetMin(N min, IObserver* originator)
    {
        T number = T();
        return convertNumber(min, &number) && SetMin(number, originator);
    }
    /// Likewise.
    template <typename N, typename = OtherNumber<N>>
    bool SetMax(N max, IObserver* originator)
    {
        T number = T();
        return convertNumber(max, &number) && SetMax(number, originator);
    }
    /// Likewise.
    template <typename N, typename = OtherNumber<N>>
    bool SetStep(N step, IObserver* originator)
    {
        T number = T();
        return convertNumber(step, &number) && SetStep(number, originator);
    }
    /// Likewise.
    template <typename Min, typename Max, typename Step>
    bool SetMinMax(Min min, Max max, Step step, IObserver* originator)
    {
        T numbers[] = {m_min, m_max, m_step};
        convertNumber(min, &numbers[0]);
        convertNumber(max, &numbers[1]);
        convertNumber(step, &numbers[2]);
        return SetMinMax(numbers[0], numbers[1], numbers[2], originator);
    }

    /// Takes limits and step too if `other` is a number of the same type.
    bool Assign(const ValueBase& other) override
    {
        const ValueNumeric* same = dynamic_cast<const ValueNumeric*>(&other);
        if (!same)
            return Base::Assign(other);
        const T content = same->GetValue();
        const ObservableGuard guard(this);
        SetMinMax(same->m_min, same->m_max, same->m_step, nullptr);
        if (guard.Get())
            SetValue(content, nullptr);
        return true;
    }

    ValueBase* AsValueBase() override { return this; }
    /// As the interface says.
    const ValueBase* AsValueBase() const override { return this; }

protected:
    double minAsDouble() const override { return static_cast<double>(m_min); }              ///< Likewise.
    double maxAsDouble() const override { return static_cast<double>(m_max); }              ///< Likewise.
    double stepAsDouble() const override { return static_cast<double>(m_step); }            ///< Likewise.
    double valueAsDouble() const override { return static_cast<double>(this->GetValue()); } ///< Likewise.
    /// Likewise.
    bool setMinFromDouble(double min, IObserver* originator) override { return SetMin(min, originator); }
    /// Likewise.
    bool setMaxFromDouble(double max, IObserver* originator) override { return SetMax(max, originator); }
    /// Likewise.
    bool setStepFromDouble(double step, IObserver* originator) override { return SetStep(step, originator); }
    /// Likewise.
    bool setValueFromDouble(double value, IObserver* originator) override
    {
        return SetValue(value, originator);
    }

private:
    T bounded(T value) const { return qMax(m_min, qMin(m_max, value)); }
    static bool replace(T* member, T value)
    {
        T number = *member;
        convertNumber(value, &number);
        if (number == *member)
            return false;
        *member = number;
        return true;
    }

    T m_min = std::numeric_limits<T>::lowest();
    T m_max = std::numeric_limits<T>::max();
    T m_step = T(1);
};

using NumericInt = ValueNumeric<int, FormatInt<int>, StreamFormat<int, FormatInt<int>>>;
using NumericInt64 = ValueNumeric<qint64, FormatInt<qint64>, StreamFormat<qint64, FormatInt<qint64>>>;
using NumericDouble = ValueNumeric<double, FormatFloat<double>, StreamFormat<double, FormatFloat<double>>>;

extern template class ValueNumeric<int, FormatInt<int>, StreamFormat<int, FormatInt<int>>>;
extern template class ValueNumeric<qint64, FormatInt<qint64>, StreamFormat<qint64, FormatInt<qint64>>>;
extern template class ValueNumeric<double, FormatFloat<double>, StreamFormat<double, FormatFloat<double>>>;

} // namespace values

#endif
