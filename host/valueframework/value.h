#ifndef ZORVA_VALUEFRAMEWORK_VALUE_H
#define ZORVA_VALUEFRAMEWORK_VALUE_H

#include <valueframework/format.h>
#include <valueframework/valuebase.h>
#include <valueframework/valueframework_export.h>

#include <QString>

#include <utility>

namespace values {

/// A value of one type; begins as that type's zero.
template <typename T, typename Format, typename Stream>
class VALUEFRAMEWORK_EXPORT Value : public ValueBase
{
public:
    using ValueBase::ValueBase;
    ~Value() override { this->retire(); }

    /// The content, whatever a transaction holds back.
    T GetValue() const { return m_content; }
    /// Tells all but @p originator, who may be null, of `ChangeCode::Content`. True if the content changed.
    virtual bool SetValue(T value, IObserver* originator)
    {
        if (!store(std::move(value)))
            return false;
        this->HasChanged(ChangeCode::Content, originator);
        return true;
    }

    /// As the interface says.
    ValueType GetType() const override { return Format::Type; }
    QString GetStringValue() const override { return Stream::write(m_content); } ///< Likewise.
    bool SetStringValue(QString text, IObserver* originator) override
    {
        T value = m_content;
        if (!Stream::read(text, &value))
            return false;
        SetValue(std::move(value), originator);
        return true;
    }

    bool Assign(const ValueBase& other) override
    {
        const Value* same = dynamic_cast<const Value*>(&other);
        if (!same)
            return SetStringValue(other.GetStringValue(), nullptr);
        SetValue(same->m_content, nullptr);
        return true;
    }
    bool Compare(const ValueBase* other) const override
    {
        const Value* same = dynamic_cast<const Value*>(other);
        return same && same->m_content == m_content;
    }

protected:
    /// Stores without telling; true if the content changed.
    bool store(T value)
    {
        if (value == m_content)
            return false;
        m_content = std::move(value);
        return true;
    }

private:
    T m_content = T();
};

using ValueBool = Value<bool, FormatBool<bool>, StreamFormat<bool, FormatBool<bool>>>;
using ValueString = Value<QString, FormatString<QString>, StreamFormat<QString, FormatString<QString>>>;
using ValueInt = Value<int, FormatInt<int>, StreamFormat<int, FormatInt<int>>>;
using ValueInt64 = Value<qint64, FormatInt<qint64>, StreamFormat<qint64, FormatInt<qint64>>>;
using ValueDouble = Value<double, FormatFloat<double>, StreamFormat<double, FormatFloat<double>>>;

extern template class Value<bool, FormatBool<bool>, StreamFormat<bool, FormatBool<bool>>>;
extern template class Value<QString, FormatString<QString>, StreamFormat<QString, FormatString<QString>>>;
extern template class Value<int, FormatInt<int>, StreamFormat<int, FormatInt<int>>>;
extern template class Value<qint64, FormatInt<qint64>, StreamFormat<qint64, FormatInt<qint64>>>;
extern template class Value<double, FormatFloat<double>, StreamFormat<double, FormatFloat<double>>>;

} // namespace values

#endif
