// Runs of digits: groups that a single blank or hyphen separates, as people type the numbers of cards and telephones.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "redaction/passages.h"

namespace wendrill::redaction {

struct DigitRun {
  std::vector<std::size_t> places;  // of the digits in the text: indexes from 0
  std::vector<std::size_t> groups;  // the number of digits of each group

  std::u16string In(TextView text) const;
};

// The runs of a text in order. A group that ends a row goes on in the row of continuation where both together have as
// many digits as the number of a card.
class DigitRuns {
 public:
  DigitRuns(TextView text, Layout layout) : text_(text), layout_(layout) {}

  // The next run; nothing past the last.
  std::optional<DigitRun> Next();

 private:
  bool IsDigitAt(std::size_t index) const { return index < text_.size() && IsDigit(text_[index]); }
  bool BeginsRow(std::size_t index) const { return layout_ == Layout::Rows && index % kRowWidth == 0; }
  std::size_t InNextRow(std::size_t end, std::size_t digits) const;

  TextView text_;
  Layout layout_;
  std::size_t position_ = 0;
};

// A part of a run: `count` digits from the digit `first` on, counted from 0.
struct DigitPart {
  std::size_t first;
  std::size_t count;
  bool isCard;  // else what is left of groups that are too long for one card
};

// The parts of a run that may be numbers of cards: a group of 13 to 19 digits; or several groups with 13 digits
// together, each of 3 to 8 and the first of 4 at least, the last perhaps shorter. So the ticket 057-1234567890 is no
// card.
std::vector<DigitPart> CardParts(const std::vector<std::size_t>& groups);

}  // namespace wendrill::redaction
