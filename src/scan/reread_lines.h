// The lines of a display that is read again for each line.
#pragma once

#include <cstdint>
#include <optional>

#include "common/text.h"
#include "pnr/numbered_lines.h"
#include "scan/display_reader.h"

namespace wendrill {

// While the display text is unchanged, the next line is found from the current position; when the text has changed, by
// counting lines from its beginning.
class RereadLines {
 public:
  // Begins at line `first` (counted from 1); the display is not read for the lines before it.
  explicit RereadLines(DisplayReader& display, std::int16_t first = 1);
  RereadLines(const RereadLines&) = delete;
  RereadLines& operator=(const RereadLines&) = delete;

  // Reads the display and returns the next line, empty past the end. The view is valid until the next call. Raises 6
  // (overflow) beyond line 32,767; errors of the toolkit propagate.
  TextView Next();

  // The number of the line that Next returned last.
  std::int16_t Number() const { return number_; }

 private:
  DisplayReader& display_;
  std::int16_t number_;
  std::optional<NumberedLines> lines_;  // of the text read last
};

}  // namespace wendrill
