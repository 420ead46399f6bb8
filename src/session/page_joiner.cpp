#include "session/page_joiner.h"

namespace wendrill {
namespace {

bool EndsLine(TextView text) {
  return HasLineBreak(LastColumns(text, 1));
}

}  // namespace

void PageJoiner::Add(TextView page) {
  if (page.empty()) {
    return;
  }
  broken_ = broken_ || HasLineBreak(page);
  MakeRoomFor(page.size() + kRowWidth);
  if (!joined_.empty()) {
    BeginPage();
  }
  joined_ += page;
}

// Makes sure that `length` more characters fit. When the string must grow, MakeRoomFor reserves 4 times the needed
// length. The string's own growth would reserve less and so reallocate more often. Each reallocation touches new
// memory, which costs more than copying the text.
void PageJoiner::MakeRoomFor(std::size_t length) {
  constexpr std::size_t kGrowth = 4;
  if (joined_.size() + length > joined_.capacity()) {
    joined_.reserve(kGrowth * (joined_.size() + length));
  }
}

// Appends the separator between the joined text and the next page. While no page has contained a line break, the next
// page included, the separator consists of blanks up to a multiple of 80 characters. Otherwise the separator is a CR
// LF, or nothing when the joined text already ends with a line break.
void PageJoiner::BeginPage() {
  if (!broken_) {
    const std::size_t rows = (joined_.size() + kRowWidth - 1) / kRowWidth;
    joined_.resize(rows * kRowWidth, kBlank);
  } else if (!EndsLine(joined_)) {
    joined_ += u"\r\n";
  }
}

}  // namespace wendrill
