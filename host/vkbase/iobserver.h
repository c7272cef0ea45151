#ifndef ZORVA_VKBASE_IOBSERVER_H
#define ZORVA_VKBASE_IOBSERVER_H

#include <vkbase/vkbase_export.h>

class Observable;

/// What about an observable has changed: one of the numbers below.
using TChangeCode = int;
/// How an observable stands: one of the numbers below.
using TValueState = int;

namespace ChangeCode {
constexpr TChangeCode State = 2;
constexpr TChangeCode Content = 3;
constexpr TChangeCode Name = 4; ///< name or translation namespace
constexpr TChangeCode ItemChanged = 5;
constexpr TChangeCode Limits = 6; ///< minimum, maximum or step
constexpr TChangeCode BulkEnd = 7;
constexpr TChangeCode ItemsRemoved = 8;
} // namespace ChangeCode

namespace ValueState {
constexpr TValueState Normal = 0;
constexpr TValueState GoingAway = 1;
} // namespace ValueState

/// Somebody who wants to hear of changes. An observer that dies takes itself
/// out of every observable first: observables do not own it. Debug builds stop
/// the program where one that did not would be told.
class VKBASE_EXPORT IObserver
{
public:
    virtual ~IObserver();

    /// `observable` has changed in the way `code` tells. On `ChangeCode::State`
    /// with a state of `ValueState::GoingAway` the observer leaves and forgets
    /// its pointer.
    virtual void Update(Observable* observable, TChangeCode code) = 0;
};

#endif
