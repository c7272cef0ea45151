#include <valueframework/interfaces.h>

namespace values {

IValue::~IValue() = default;
ITreeItem::~ITreeItem() = default;
IDeleteSubject::~IDeleteSubject() = default;
IHasTimerCallback::~IHasTimerCallback() = default;
IOptimizeTrigger::~IOptimizeTrigger() = default;
ISupportTransaction::~ISupportTransaction() = default;

} // namespace values
