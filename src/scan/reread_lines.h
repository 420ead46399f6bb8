// The lines of a display, read again from the terminal for each line.
#pragma once

#include <cstdint>
#include <optional>

#include "common/text.h"
#include "pnr/numbered_lines.h"
#include "scan/display_reader.h"

namespace wendrill {

// Returns the lines in order. While the display text is unchanged, Next continues at the current position. When the
// text has changed, Next counts lines from the beginning of the new text to find the line with the next number.
class RereadLines {
 public:
  // Begins at line `first` (counted from 1). The constructor does not read the display, and the lines before `first`
  // are skipped without a further reading.
  explicit RereadLines(DisplayReader& display, std::int16_t first = 1);
  RereadLines(const RereadLines&) = delete;
  RereadLines& operator=(const RereadLines&) = delete;

  // Reads the display again and returns the next line; empty past the end. The view is valid until the next call.
  // Raises 6 (overflow) beyond line 32,767. Errors of the toolkit propagate.
  TextView Next();

  // The number (counted from 1) of the line that Next returned last.
  std::int16_t Number() const { return number_; }

 private:
  DisplayReader& display_;
  std::int16_t number_;
  std::optional<NumberedLines> lines_;  // the lines of the text that was read last
};

}  // namespace wendrill
