// UnlockingOnFailure and Unlocking, with which the members of CQuillet release the alarm lock.
#pragma once

#include <cstdint>

#include "common/failures.h"
#include "session/quillet.h"

namespace wendrill {

// Runs `work` and returns its result. When `work` fails, calls UnLockAlarm and raises `number`. Two failures raise
// another number: a lack of memory in `work` raises 7 (out of memory), and a failure of UnLockAlarm raises 2559, the
// number of UnLockAlarm.
template <typename Work>
auto CQuillet::UnlockingOnFailure(std::int32_t number, Work work) {
  return UndoingOnFailure([&] { return WithNumber(number, work); }, [this] { UnLockAlarm(); });
}

// Runs `work`, calls UnLockAlarm whether `work` succeeds or fails, and returns the result of `work`. Raises:
//   - `work` fails: `number`, or 7 (out of memory) for a lack of memory. When UnLockAlarm fails too: 2559.
//   - `work` succeeds, but UnLockAlarm fails: UnLockAlarm is called a second time. The member raises `number` when the
//     second call succeeds, and 2559 when the second call fails.
template <typename Work>
auto CQuillet::Unlocking(std::int32_t number, Work work) {
  return UnlockingOnFailure(number, [&] {
    auto result = work();
    UnLockAlarm();
    return result;
  });
}

}  // namespace wendrill
