#include "scan/reread_lines.h"

#include "common/numeric.h"

namespace wendrill {

RereadLines::RereadLines(DisplayReader& display, std::int16_t first)
    : display_(display), number_(Subtract16(first, 1)) {}

TextView RereadLines::Next() {
  if (display_.Read()) {
    lines_.emplace(display_.Text());
  }
  while (lines_->Number() < number_) {
    lines_->Next();
  }
  number_ = Add16(number_, 1);
  return lines_->Next();
}

}  // namespace wendrill
