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
// member's number, also when the unlock itself fails.
template <typename Work>
auto CQuillet::UnlockingOnFailure(std::int32_t number, Work work) {
  return WithNumber(number, [&] {
    try {
      return work();
    } catch (...) {
      UnLockAlarm();
      throw;
    }
  });
}

// An unlock that fails behind work that succeeded is a failure like another: the lock is tried once more on the way
// out.
template <typename Work>
auto CQuillet::Unlocking(std::int32_t number, Work work) {
  return UnlockingOnFailure(number, [&] {
    auto result = work();
    UnLockAlarm();
    return result;
  });
}

}  // namespace wendrill
