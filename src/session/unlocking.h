// How a member releases the alarm lock.
#pragma once

#include <cstdint>

#include "common/failures.h"
#include "session/quillet.h"

namespace wendrill {

// When UnLockAlarm fails, the caller receives its number, 2559, whatever failure came before.
template <typename Work>
auto CQuillet::UnlockingOnFailure(std::int32_t number, Work work) {
  return UndoingOnFailure([&] { return WithNumber(number, work); }, [this] { UnLockAlarm(); });
}

// When the work succeeds but UnLockAlarm fails, UnLockAlarm is called once more; when the second call succeeds, the
// caller receives the member's number.
template <typename Work>
auto CQuillet::Unlocking(std::int32_t number, Work work) {
  return UnlockingOnFailure(number, [&] {
    auto result = work();
    UnLockAlarm();
    return result;
  });
}

}  // namespace wendrill
