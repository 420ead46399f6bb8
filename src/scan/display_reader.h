// Reads the display for a scan. Some scans call Read again for each line: each line is then what the terminal shows at
// that moment.
#pragma once

#include <string>

#include "common/module_state.h"
#include "common/text.h"

namespace wendrill {

class DisplayReader {
 public:
  // Reads the display of the current PNR object of `state`, which must outlive this object.
  explicit DisplayReader(const ModuleState& state) : state_(&state) {}

  // Reads a fixed text instead of a PNR's display. The characters must outlive this object.
  explicit DisplayReader(TextView text) : text_(text) {}

  DisplayReader(const DisplayReader&) = delete;
  DisplayReader& operator=(const DisplayReader&) = delete;

  // Reads the display. Returns false when the text is the text of the previous reading: views into Text() then stay
  // valid. Returns true for the first reading and for a changed text. Errors of the toolkit propagate.
  bool Read();

  // The text of the last reading. Before the first reading: the fixed text, or an empty text when there is no fixed
  // text.
  TextView Text() const { return text_; }

 private:
  const ModuleState* state_ = nullptr;
  std::u16string display_;
  TextView text_;
  bool isRead_ = false;
};

}  // namespace wendrill
