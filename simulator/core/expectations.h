// What a test expects of the script and of the simulated terminal, and which expectations held.
//
// An expectation records its outcome and never raises for a failure, so no error handling of a script can hide one.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "common/text_forms.h"
#include "common/value.h"

namespace wendrill::simulator {

struct Expectation {
  std::u16string name;
  std::u16string failure;  // what was found and what was expected; empty when the expectation held
};

// The text of a failed expectation: expectation "office" failed: got "PARXX0100", expected "NCEYY2100" (...).
std::u16string FailureText(const Expectation& expectation);

class Expectations {
 public:
  // `actual` equals `expected`: strings exactly; numbers by their value, whatever their types; a number never equals a
  // string; arrays element by element, whatever their lower bounds; objects by identity.
  void Equal(std::u16string_view name, const Value& actual, const Value& expected, const TextForms& forms);

  // `value` is True, or a number other than 0.
  void Holds(std::u16string_view name, const Value& value, const TextForms& forms);

  // `entry` was transmitted exactly `times` times; `sent` lists all transmitted entries in order. Raises 5 for times
  // below 0.
  void Sent(std::u16string_view entry, std::int32_t times, const std::vector<std::u16string>& sent);

  // The entries were transmitted in this order; others may have been sent between them. Raises 13 for anything but an
  // array, 5 for an array without entries.
  void InOrder(const Value& entries, const std::vector<std::u16string>& sent, const TextForms& forms);

  // A call failed with the expected number; `number` is what the script met, 0 for no error.
  void Fails(std::u16string_view name, std::int32_t number, std::int32_t expected);

  // A text was on a screen. `seconds` is how long was waited, `firstRow` what the screen showed instead.
  void Screen(std::u16string_view text, bool found, double seconds, std::u16string_view firstRow,
              const TextForms& forms);

  const std::vector<Expectation>& All() const { return all_; }

  // How many failed, and their texts in order, counted from 0.
  std::int32_t Failed() const;
  TextArray Failures() const;

  // Sets a hook that is called with each expectation when it is recorded.
  void OnRecorded(std::function<void(const Expectation&)> hook) { onRecorded_ = std::move(hook); }

 private:
  void Record(std::u16string name, std::u16string failure);

  std::vector<Expectation> all_;
  std::function<void(const Expectation&)> onRecorded_;
};

}  // namespace wendrill::simulator
