// Port to a value of an automation type that the core does not have.
#pragma once

#include <string>

namespace wendrill {

// An immutable value of one of these types: single, currency, decimal, byte, an unsigned or a 64-bit integer, an error
// code, an array of anything but strings and variants. The core forwards such a value unchanged, or reads it as a
// number or as a string.
class ForeignValue {
 public:
  virtual ~ForeignValue() = default;

  // The double that is nearest to the value. Raises 13 (type mismatch) for a value that is not a number.
  virtual double Number() const = 0;

  // The string form of the value, formatted for its own type (a single has seven digits) and by the user's regional
  // settings. Raises 13 (type mismatch) for a value without a string form.
  virtual std::u16string Text() const = 0;
};

}  // namespace wendrill
