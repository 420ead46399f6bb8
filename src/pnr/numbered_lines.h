// The lines of a display with 16-bit line numbers.
#pragma once

#include <cstdint>

#include "common/numeric.h"
#include "common/text.h"

namespace wendrill {

// Reads the lines of a display in order, from line 1 on. A copy of a NumberedLines reads on independently of the
// original.
class NumberedLines {
 public:
  explicit NumberedLines(TextView display) : lines_(display) {}

  // The next line; an empty view after the last line. Each call increments the line number, also after the last line.
  // Raises 6 (overflow) beyond line 32,767.
  TextView Next() {
    number_ = Add16(number_, 1);
    return lines_.Next();
  }

  // The number (counted from 1) of the line that the last call of Next returned; 0 before the first call of Next.
  std::int16_t Number() const { return number_; }

  // The text from the beginning of the next line on.
  TextView Rest() const { return lines_.Rest(); }

  // Whether Next has returned all lines of the display. Once AtEnd is true, Next returns empty views.
  bool AtEnd() const { return lines_.AtEnd(); }

 private:
  DisplayLines lines_;
  std::int16_t number_ = 0;
};

}  // namespace wendrill
