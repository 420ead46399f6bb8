// Which error a member raises for a failure inside it.
//
// Memory shortage never becomes a member's number: in every module std::bad_alloc propagates to the automation
// boundary, which reports 7 (out of memory). Creating any other error takes memory too, so the number would depend on
// how much memory is left. Two exceptions: a member that never raises continues without what it could not allocate, and
// a memory shortage that a component of the terminal reports counts as any other failure of that component.
#pragma once

#include <cstdint>
#include <new>
#include <optional>

#include "common/error.h"

namespace wendrill {

// In place of a member's number: failures propagate unchanged.
inline constexpr std::int32_t kNoNumber = 0;

// Runs `work`. Every failure becomes the error that `makeError` returns, except the run-time error `except`, which
// propagates unchanged.
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

// Runs a member's work. Every failure becomes the member's own number, except the run-time error `except`, which
// propagates unchanged. For kNoNumber every failure propagates unchanged.
template <typename Work>
auto WithNumber(std::int32_t number, Work work, std::optional<RunTimeError> except = {}) {
  if (number == kNoNumber) {
    return work();
  }
  const auto ownError = [number] { return OwnErrorOf(number); };
  return ReplacingFailure(work, ownError, except);
}

// Runs `work`; when it fails, memory shortage included, runs `undo` and lets the failure propagate. When `undo` fails,
// its failure propagates instead.
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
