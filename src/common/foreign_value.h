// Port to a value of a type that the core does not have.
#pragma once

#include <string>

namespace wendrill {

// A single, a currency, a decimal, a byte, an unsigned or a 64-bit integer, an error code, an array of anything but
// strings and variants. The core passes such a value on unchanged and reads it as a number or as a string. Immutable.
class ForeignValue {
 public:
  virtual ~ForeignValue() = default;

  // The nearest double. Raises 13 for a value that is not a number.
  virtual double Number() const = 0;

  // The string form of the value's own type (a single has seven digits) in the user's settings. Raises 13 for a value
  // without a string form.
  virtual std::u16string Text() const = 0;
};

}  // namespace wendrill
