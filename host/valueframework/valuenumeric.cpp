#include <valueframework/valuenumeric.h>

namespace values {

IValueNumeric::~IValueNumeric() = default;

template class ValueNumeric<int, FormatInt<int>, StreamFormat<int, FormatInt<int>>>;
template class ValueNumeric<qint64, FormatInt<qint64>, StreamFormat<qint64, FormatInt<qint64>>>;
template class ValueNumeric<double, FormatFloat<double>, StreamFormat<double, FormatFloat<double>>>;

} // namespace values
