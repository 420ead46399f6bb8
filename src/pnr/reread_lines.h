// The lines of a display that is read anew for each of them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "common/module_state.h"
#include "common/text.h"
#include "pnr/numbered_lines.h"

namespace wendrill {

// As long as the display reads the same, the walk goes on where it stands; in one that changed, the line that is due is
// sought from the beginning.
class RereadLines {
 public:
  // A walk from line `first` (counted from 1) on; the lines before it are not asked for.
  explicit RereadLines(const ModuleState& state, std::int16_t first = 1);
  RereadLines(const RereadLines&) = delete;
  RereadLines& operator=(const RereadLines&) = delete;

  // Reads the display and returns the next line, empty past the end; it is valid until the next call. 6 (overflow)
  // beyond line 32,767; failures are the toolkit's own.
  TextView Next();

  // The number of the line that Next returned last.
  std::int16_t Number() const { return number_; }

 private:
  void Read();

  const ModuleState& state_;
  std::int16_t number_;
  std::u16string display_;
  std::optional<NumberedLines> lines_;  // over display_
};

}  // namespace wendrill
