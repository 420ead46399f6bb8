// The display of a scan that reads it again for each line: such a scan sees what the terminal shows at that moment.
#pragma once

#include <string>

#include "common/module_state.h"
#include "common/text.h"

namespace wendrill {

class DisplayReader {
 public:
  // The display of the PNR object.
  explicit DisplayReader(const ModuleState& state) : state_(&state) {}

  // A text that cannot change between two readings.
  explicit DisplayReader(TextView text) : text_(text) {}

  DisplayReader(const DisplayReader&) = delete;
  DisplayReader& operator=(const DisplayReader&) = delete;

  // Reads the display; false when the text is the same as before, whose views then stay valid. Errors of the toolkit
  // propagate.
  bool Read();

  // The text read last.
  TextView Text() const { return text_; }

 private:
  const ModuleState* state_ = nullptr;
  std::u16string display_;
  TextView text_;
  bool isRead_ = false;
};

}  // namespace wendrill
