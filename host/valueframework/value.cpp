#include <valueframework/value.h>

namespace values {

template class Value<bool, FormatBool<bool>, StreamFormat<bool, FormatBool<bool>>>;
template class Value<QString, FormatString<QString>, StreamFormat<QString, FormatString<QString>>>;
template class Value<int, FormatInt<int>, StreamFormat<int, FormatInt<int>>>;
template class Value<qint64, FormatInt<qint64>, StreamFormat<qint64, FormatInt<qint64>>>;
template class Value<double, FormatFloat<double>, StreamFormat<double, FormatFloat<double>>>;

} // namespace values
