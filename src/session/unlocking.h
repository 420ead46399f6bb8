// How a member releases the alarm lock.
#pragma once

#include <cstdint>

#include "common/failures.h"
#include "session/quillet.h"

namespace wendrill {

// When the unlock itself fails, the caller receives its 2559, whatever failed first.
template <typename Work>
auto CQuillet::UnlockingOnFailure(std::int32_t number, Work work) {
  return UndoingOnFailure([&] { return WithNumber(number, work); }, [this] { UnLockAlarm(); });
}

// When the work succeeds but the unlock after it fails, the unlock is tried once more; when the second try succeeds,
// the caller receives the member's number.
template <typename Work>
auto CQuillet::Unlocking(std::int32_t number, Work work) {
  return UnlockingOnFailure(number, [&] {
    auto result = work();
    UnLockAlarm();
    return result;
  });
}

}  // namespace wendrill
