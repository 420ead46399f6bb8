// Runs of digits in a text: groups of digits with a single blank or hyphen between them, as people type the numbers of
// cards and telephones.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "redaction/passages.h"

namespace wendrill::redaction {

struct DigitRun {
  std::vector<std::size_t> places;  // the indexes of the digits in the text, counted from 0
  std::vector<std::size_t> groups;  // the number of digits of each group

  // The digits of the run, without separators. REQUIRES: `text` is the text in which the run was found.
  std::u16string In(TextView text) const;
};

// Enumerates the runs of a text in order. A group at the end of a row continues in the next row if that is a
// continuation row and both parts together have as many digits as a card number (13 to 19).
class DigitRuns {
 public:
  DigitRuns(TextView text, Layout layout) : text_(text), layout_(layout) {}

  // The next run; nullopt after the last one.
  std::optional<DigitRun> Next();

 private:
  bool IsDigitAt(std::size_t index) const { return index < text_.size() && IsDigit(text_[index]); }
  bool BeginsRow(std::size_t index) const { return layout_ == Layout::Rows && index % kRowWidth == 0; }
  std::size_t InNextRow(std::size_t end, std::size_t digits) const;

  TextView text_;
  Layout layout_;
  std::size_t position_ = 0;
};

// A part of a run: `count` digits, beginning with the digit `first` of the run, counted from 0.
struct DigitPart {
  std::size_t first;
  std::size_t count;
  bool isCard;  // false for a part that the division leaves with fewer than 13 digits
};

// The parts of a run that may be card numbers. A card number is a group of 13 to 19 digits, or several groups with 13
// digits or more together. Of several groups, the first has 4 to 8 digits, the others have 3 to 8, and the last may be
// shorter. Groups with more than 19 digits together are divided into several parts, each of whole groups. The ticket
// number 057-1234567890 is not a card number, because its groups have 3 and 10 digits.
std::vector<DigitPart> CardParts(const std::vector<std::size_t>& groups);

}  // namespace wendrill::redaction
