// UnlockingOnFailure and Unlocking, with which the members of CQuillet release the alarm lock.
#pragma once

#include <cstdint>

#include "common/failures.h"
#include "session/quillet.h"

namespace wendrill {

// Runs `work` and returns its result. When `work` fails, calls UnLockAlarm and raises `number`; a lack of memory raises
// 7 (out of memory) instead of `number`. When UnLockAlarm fails as well, the caller receives 2559, the number of
// UnLockAlarm.
template <typename Work>
auto CQuillet::UnlockingOnFailure(std::int32_t number, Work work) {
  return UndoingOnFailure([&] { return WithNumber(number, work); }, [this] { UnLockAlarm(); });
}

// Runs `work`, calls UnLockAlarm whether `work` succeeds or fails, and returns the result of `work`. When `work` fails,
// the caller receives what UnlockingOnFailure raises. When `work` succeeds but UnLockAlarm fails, UnLockAlarm is called
// once more. The caller then receives `number` when the second call succeeds, and 2559 when the second call fails.
template <typename Work>
auto CQuillet::Unlocking(std::int32_t number, Work work) {
  return UnlockingOnFailure(number, [&] {
    auto result = work();
    UnLockAlarm();
    return result;
  });
}

}  // namespace wendrill
