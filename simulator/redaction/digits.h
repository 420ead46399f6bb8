// Finds the runs of digits in a text, as people type the numbers of cards and telephones. A run consists of one or more
// groups of digits, with a single blank or hyphen between two groups: "4000 0000 0000 0002" is a run of four groups.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "redaction/passages.h"

namespace wendrill::redaction {

struct DigitRun {
  std::vector<std::size_t> places;  // the indexes of the digits in the text, counted from 0
  std::vector<std::size_t> groups;  // the number of digits of each group, in the order of the groups

  // The digits of the run, without separators. REQUIRES: `text` is the text in which the run was found.
  std::u16string In(TextView text) const;
};

// Enumerates the runs of a text in order. A run consists of groups of digits, with a single blank or hyphen between two
// groups. A group continues in the next row if all of these are true:
// - The text has rows: its layout is not Layout::OneLine.
// - Only blanks follow the first part of the group in its row.
// - The next row is a continuation row, which begins with four blanks, and the second part is the first text of that
//   row.
// - Both parts together have 13 to 19 digits, as a card number has.
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

// Some successive digits of a run: `count` digits, beginning with the digit that has the index `first` (counted from 0)
// among the digits of the run.
struct DigitPart {
  std::size_t first;
  std::size_t count;
  bool isCard;  // true for a card number; false for a part of fewer than 13 digits (see CardParts)
};

// The card numbers in a run of digits, in order. `groups` contains the number of digits of each group of the run.
// - A single group of 13 to 19 digits is a card number.
// - A sequence of groups with 13 to 19 digits in total is a card number. A sequence is as long as possible: a group of
//   4 to 8 digits, then groups of 3 to 8 digits, then at most one group of 1 or 2 digits.
// - A sequence with more than 19 digits is divided into parts. Each part consists of whole groups with at most 19
//   digits in total. A part of 13 digits or more is a card number; a shorter part is also in the result, with `isCard`
//   false.
//
// The ticket number 057-1234567890 is not a card number: no sequence begins with 3 digits or contains a group of 10
// digits.
std::vector<DigitPart> CardParts(const std::vector<std::size_t>& groups);

}  // namespace wendrill::redaction
