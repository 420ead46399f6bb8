// How a member's failure becomes its number.
#pragma once

#include <cstdint>
#include <type_traits>

#include "common/error.h"
#include "session/quillet.h"

namespace wendrill {

// Runs a member's work; whatever fails inside reaches the caller as the member's own number.
template <typename Work>
auto WithNumber(std::int32_t number, Work work) {
  try {
    return work();
  } catch (...) {
    RaiseOwn(number);
  }
}

// The unlock begins by clearing the pending error, so there is none left to raise again and the caller receives the
// member's number; when the unlock itself fails, its 2559, whatever failed first.
template <typename Work>
auto CQuillet::UnlockingOnFailure(std::int32_t number, Work work) {
  try {
    return work();
  } catch (...) {
    UnLockAlarm();
    RaiseOwn(number);
  }
}

// An unlock that fails after work that succeeded is a failure like another: it is tried once more on the way out, and
// when that works the caller receives the member's number.
template <typename Work>
auto CQuillet::Unlocking(std::int32_t number, Work work) {
  return UnlockingOnFailure(number, [&] {
    auto result = work();
    UnLockAlarm();
    return result;
  });
}

}  // namespace wendrill
