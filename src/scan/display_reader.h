// Reads the display of a PNR for a scan. Some scans call Read again for each line or row, so that each line or row
// comes from the text that the terminal shows at that moment.
#pragma once

#include <string>

#include "common/module_state.h"
#include "common/text.h"

namespace wendrill {

class DisplayReader {
 public:
  // Read will read the display of the PNR object that is current at the time of the call of Read. `state` must outlive
  // this object.
  explicit DisplayReader(const ModuleState& state) : state_(&state) {}

  // Read will find `text` instead of a PNR's display. The characters of `text` must outlive this object.
  explicit DisplayReader(TextView text) : text_(text) {}

  DisplayReader(const DisplayReader&) = delete;
  DisplayReader& operator=(const DisplayReader&) = delete;

  // Reads the display, or the fixed text. Returns true for the first call, and for a display text that differs from the
  // text of the previous call. Returns false when the text is unchanged: views into Text() then stay valid. Errors of
  // the toolkit propagate.
  bool Read();

  // The text that the last call of Read found. Before the first call of Read: the fixed text, or an empty text when the
  // object reads a PNR's display.
  TextView Text() const { return text_; }

 private:
  const ModuleState* state_ = nullptr;
  std::u16string display_;
  TextView text_;
  bool isRead_ = false;
};

}  // namespace wendrill
