// How any failure inside a member becomes the member's error number.
#pragma once

#include <cstdint>
#include <type_traits>

#include "common/error.h"
#include "session/quillet.h"

namespace wendrill {

// Runs a member's work and raises the member's own number for any failure inside.
template <typename Work>
auto WithNumber(std::int32_t number, Work work) {
  try {
    return work();
  } catch (...) {
    RaiseOwn(number);
  }
}

// The unlock clears the pending error first, so the caller receives the member's number and not the original error.
// When the unlock itself fails, the caller receives its 2559, whatever failed first.
template <typename Work>
auto CQuillet::UnlockingOnFailure(std::int32_t number, Work work) {
  try {
    return work();
  } catch (...) {
    UnLockAlarm();
    RaiseOwn(number);
  }
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
