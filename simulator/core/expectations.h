// The expectations of a test about the script and the simulated terminal, and their outcomes.
//
// An expectation that does not hold is recorded, but raises no error. So no error handling in a script can hide the
// failure.
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

// The message for a failed expectation, such as: expectation "office" failed: got "PARXX0100", expected "NCEYY2100"
// (first difference: character 1)
std::u16string FailureText(const Expectation& expectation);

class Expectations {
 public:
  // Expects that `actual` equals `expected`. Strings are compared exactly, numbers by value whatever their types,
  // arrays element by element whatever their lower bounds, and objects by identity. A number never equals a string.
  void Equal(std::u16string_view name, const Value& actual, const Value& expected, const TextForms& forms);

  // Expects that `value` is True or a number other than 0.
  void Holds(std::u16string_view name, const Value& value, const TextForms& forms);

  // Expects that `entry` was transmitted exactly `times` times. `sent` lists all transmitted entries in order. Raises 5
  // when `times` is below 0.
  void Sent(std::u16string_view entry, std::int32_t times, const std::vector<std::u16string>& sent);

  // Expects that the strings in the array `entries` were transmitted in this order; other entries may have been
  // transmitted between them. `sent` lists all transmitted entries in order. Raises 13 when `entries` is not an array,
  // and 5 when the array is empty.
  void InOrder(const Value& entries, const std::vector<std::u16string>& sent, const TextForms& forms);

  // Expects that a call failed with the error number `expected`. `number` is the error number that the script received,
  // 0 when the call did not fail.
  void Fails(std::u16string_view name, std::int32_t number, std::int32_t expected);

  // Records whether `text` appeared on a screen. `seconds` is the time that was waited. `firstRow` is the first row of
  // a screen when the screens were last read; the failure message quotes it.
  void Screen(std::u16string_view text, bool found, double seconds, std::u16string_view firstRow,
              const TextForms& forms);

  const std::vector<Expectation>& All() const { return all_; }

  // The number of failed expectations; and their messages (FailureText) in order, in an array with the lower bound 0.
  std::int32_t Failed() const;
  TextArray Failures() const;

  // Sets a function that is called with each expectation as soon as the expectation is recorded.
  void OnRecorded(std::function<void(const Expectation&)> hook) { onRecorded_ = std::move(hook); }

 private:
  void Record(std::u16string name, std::u16string failure);

  std::vector<Expectation> all_;
  std::function<void(const Expectation&)> onRecorded_;
};

}  // namespace wendrill::simulator
