// The expectations of a test about the script and the simulated terminal, and their outcomes.
//
// An expectation that does not hold adds a failure to the outcomes, but raises no error. So the test fails even if the
// script ignores errors.
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
  // Expects that `actual` equals `expected`:
  //   - Strings are compared exactly.
  //   - Numbers are compared by value, even if their types differ. A number equals neither a string nor a Boolean.
  //   - Arrays are compared element by element, even if their lower bounds differ.
  //   - Objects, and values of other automation types (ForeignValue) that are not numbers, are compared by identity.
  void Equal(std::u16string_view name, const Value& actual, const Value& expected, const TextForms& forms);

  // Expects that `value` is True or a number other than 0.
  void Holds(std::u16string_view name, const Value& value, const TextForms& forms);

  // Expects that `entry` was transmitted exactly `times` times. `sent` lists, in order, all transmitted entries and the
  // parts of packed entries (several entries joined with ";"); see Journal::Sent. Raises 5 (invalid argument) when
  // `times` is below 0.
  void Sent(std::u16string_view entry, std::int32_t times, const std::vector<std::u16string>& sent);

  // Expects that the entries in the array `entries` were transmitted in this order; other entries may have been
  // transmitted between them. `sent` lists, in order, all transmitted entries and the parts of packed entries (several
  // entries joined with ";"); see Journal::Sent. Raises 13 (type mismatch) when `entries` is not an array, and 5
  // (invalid argument) when the array is empty. Raises the errors of ToText for an item without a string form.
  void InOrder(const Value& entries, const std::vector<std::u16string>& sent, const TextForms& forms);

  // Expects that a call failed with the error number `expected`, or that the call succeeded when `expected` is 0.
  // `number` is the error number that the script received; 0 when the call did not fail.
  void Fails(std::u16string_view name, std::int32_t number, std::int32_t expected);

  // Adds the outcome of a wait until a screen contains `text`. `found` is whether a screen contained `text` within
  // `seconds`. `firstRow` is the first row of the last non-empty screen that was read, for the failure message.
  void Screen(std::u16string_view text, bool found, double seconds, std::u16string_view firstRow,
              const TextForms& forms);

  const std::vector<Expectation>& All() const { return all_; }

  // Failed returns the number of failed expectations. Failures returns the messages (FailureText) of the failed
  // expectations in order, in an array with the lower bound 0.
  std::int32_t Failed() const;
  TextArray Failures() const;

  // Sets a hook that is called with each expectation as soon as its outcome has been added.
  void OnRecorded(std::function<void(const Expectation&)> hook) { onRecorded_ = std::move(hook); }

 private:
  void Record(std::u16string name, std::u16string failure);

  std::vector<Expectation> all_;
  std::function<void(const Expectation&)> onRecorded_;
};

}  // namespace wendrill::simulator
