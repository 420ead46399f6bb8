// Reads the lines of a PNR's display in order. Before each line, the display text is read again from the terminal.
#pragma once

#include <cstdint>
#include <optional>

#include "common/text.h"
#include "pnr/numbered_lines.h"
#include "scan/display_reader.h"

namespace wendrill {

// Returns the lines of a display in order. While the display text is unchanged, Next continues at the current position.
// When the text has changed, Next counts lines from the beginning of the new text to find the line with the next
// number.
class RereadLines {
 public:
  // `first` is the number (counted from 1) of the line that the first call of Next returns. The constructor does not
  // read the display. The first call of Next reads the display once and skips the lines before `first`.
  explicit RereadLines(DisplayReader& display, std::int16_t first = 1);
  RereadLines(const RereadLines&) = delete;
  RereadLines& operator=(const RereadLines&) = delete;

  // Reads the display again and returns the next line; empty past the end of the text. The view is valid until the next
  // call of Next. Raises 6 (overflow) beyond line 32,767. Errors of the toolkit propagate.
  TextView Next();

  // The number (counted from 1) of the line that Next returned last; `first` - 1 before the first call of Next.
  std::int16_t Number() const { return number_; }

 private:
  DisplayReader& display_;
  std::int16_t number_;
  std::optional<NumberedLines> lines_;  // the lines of the text that was read last; nullopt before the first read
};

}  // namespace wendrill
