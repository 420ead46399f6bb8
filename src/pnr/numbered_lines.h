// The lines of a display with their line numbers, which have 16 bits.
#pragma once

#include <cstdint>

#include "common/numeric.h"
#include "common/text.h"

namespace wendrill {

// Returns the lines from line 1 on. A copy advances independently.
class NumberedLines {
 public:
  explicit NumberedLines(TextView display) : lines_(display) {}

  // The next line, empty past the end. Raises 6 (overflow) beyond line 32,767.
  TextView Next() {
    number_ = Add16(number_, 1);
    return lines_.Next();
  }

  // The number of the line that Next returned last; 0 before the first call.
  std::int16_t Number() const { return number_; }

  // The text from the next line on.
  TextView Rest() const { return lines_.Rest(); }

  // Whether the end of the text is reached: all further lines are empty.
  bool AtEnd() const { return lines_.AtEnd(); }

 private:
  DisplayLines lines_;
  std::int16_t number_ = 0;
};

}  // namespace wendrill
