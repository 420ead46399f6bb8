// The lines of a display under their numbers, which the run time keeps in 16 bits.
#pragma once

#include <cstdint>

#include "common/numeric.h"
#include "common/text.h"

namespace wendrill {

// A walk from line 1 on; a copy walks on by itself.
class NumberedLines {
 public:
  explicit NumberedLines(TextView display) : lines_(display) {}

  // The next line, empty past the end; 6 (overflow) beyond line 32,767.
  TextView Next() {
    number_ = Add16(number_, 1);
    return lines_.Next();
  }

  // The number of the line that Next returned last; 0 before the first.
  std::int16_t Number() const { return number_; }

  // The text from the next line on.
  TextView Rest() const { return lines_.Rest(); }

  // Whether the walk has passed the end of the text: the lines from here on are all empty.
  bool AtEnd() const { return lines_.AtEnd(); }

 private:
  DisplayLines lines_;
  std::int16_t number_ = 0;
};

}  // namespace wendrill
