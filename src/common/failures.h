// These functions decide which error a member raises for a failure inside the member.
//
// Lack of memory is not replaced by a member's own number. In every module std::bad_alloc propagates to the automation
// boundary, which reports 7 (out of memory). The reason: creating an error with the member's number takes memory too,
// so the reported number would depend on how much memory is left. There are two exceptions. A member that never raises
// continues without what it could not allocate. When a component of the terminal reports a lack of memory, that failure
// counts like any other failure of the component.
#pragma once

#include <cstdint>
#include <new>
#include <optional>

#include "common/error.h"

namespace wendrill {

// With this value for its parameter `number`, WithNumber lets every failure propagate unchanged.
inline constexpr std::int32_t kNoNumber = 0;

// Runs `work` and returns its result. When `work` fails, raises the error that `makeError` returns instead. Two
// failures propagate unchanged: std::bad_alloc, and an Error with the number of `except` if `except` is given.
template <typename Work, typename MakeError>
auto ReplacingFailure(Work work, MakeError makeError, std::optional<RunTimeError> except = {}) {
  try {
    return work();
  } catch (const std::bad_alloc&) {
    throw;
  } catch (const Error& error) {
    if (except && error.Number() == static_cast<std::int32_t>(*except)) {
      throw;
    }
    throw makeError();
  } catch (...) {
    throw makeError();
  }
}

// Runs a member's work and returns its result. When the work fails, raises the member's own number instead. Two
// failures propagate unchanged: std::bad_alloc, and an Error with the number of `except` if `except` is given. When
// `number` is kNoNumber, every failure propagates unchanged.
template <typename Work>
auto WithNumber(std::int32_t number, Work work, std::optional<RunTimeError> except = {}) {
  if (number == kNoNumber) {
    return work();
  }
  const auto ownError = [number] { return OwnErrorOf(number); };
  return ReplacingFailure(work, ownError, except);
}

// Runs `work` and returns its result. When `work` fails, even for lack of memory, runs `undo` and lets the failure of
// `work` propagate. When `undo` fails too, the failure of `undo` propagates instead.
template <typename Work, typename Undo>
auto UndoingOnFailure(Work work, Undo undo) {
  try {
    return work();
  } catch (...) {
    undo();
    throw;
  }
}

}  // namespace wendrill
