// Port to a value of a type that the core does not have.
#pragma once

#include <string>

namespace wendrill {

// A single, a currency, a decimal, a byte, an unsigned or a 64-bit integer, an error code, an array of anything but
// strings and variants. The core passes it on unchanged, reads it as a number and turns it into text; it never changes.
class ForeignValue {
 public:
  virtual ~ForeignValue() = default;

  // The nearest double; 13 for what is not a number.
  virtual double Number() const = 0;

  // In the form of its own type and of the user's settings: a single has seven digits. 13 for what has no text.
  virtual std::u16string Text() const = 0;
};

}  // namespace wendrill
