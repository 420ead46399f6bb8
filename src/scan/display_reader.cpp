#include "scan/display_reader.h"

#include <algorithm>
#include <utility>

#include "pnr/toolkit_pnr.h"

namespace wendrill {

bool DisplayReader::Read() {
  const bool isFirst = !isRead_;
  if (state_ != nullptr) {
    std::u16string display = DisplayText(*state_);
    if (!isFirst && std::equal(display.begin(), display.end(), text_.begin(), text_.end())) {
      return false;
    }
    display_ = std::move(display);
    text_ = display_;
  }
  isRead_ = true;
  return isFirst || state_ != nullptr;
}

}  // namespace wendrill
