#include "session/page_joiner.h"

namespace wendrill {
namespace {

constexpr TextView kLineBreaks = u"\r\n";

bool IsLineBreak(char16_t character) {
  return kLineBreaks.find(character) != TextView::npos;
}

}  // namespace

void PageJoiner::Add(TextView page) {
  if (page.empty()) {
    return;
  }
  broken_ = broken_ || page.find_first_of(kLineBreaks) != TextView::npos;
  if (!joined_.empty()) {
    BeginPage();
  }
  joined_ += page;
}

void PageJoiner::BeginPage() {
  if (!broken_) {
    const std::size_t rows = (joined_.size() + kRowWidth - 1) / kRowWidth;
    joined_.resize(rows * kRowWidth, kBlank);
  } else if (!IsLineBreak(joined_.back())) {
    joined_ += u"\r\n";
  }
}

}  // namespace wendrill
