#include "scan/reread_lines.h"

#include <algorithm>
#include <utility>

#include "common/numeric.h"
#include "pnr/toolkit_pnr.h"

namespace wendrill {

RereadLines::RereadLines(const ModuleState& state, std::int16_t first) : state_(state), number_(Subtract16(first, 1)) {}

TextView RereadLines::Next() {
  Read();
  while (lines_->Number() < number_) {
    lines_->Next();
  }
  number_ = Add16(number_, 1);
  return lines_->Next();
}

void RereadLines::Read() {
  std::u16string display = DisplayText(state_);
  if (!lines_ || !std::equal(display.begin(), display.end(), display_.begin(), display_.end())) {
    display_ = std::move(display);
    lines_.emplace(display_);
  }
}

}  // namespace wendrill
