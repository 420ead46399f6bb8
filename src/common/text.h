// Text as the host's displays need it: UTF-16, columns and lines counted from 1, blanks (U+0020) the only white space.
//
// Views in, views out: a function here never copies unless its result cannot be a view. Every result that is not found
// is empty, or column 0.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace wendrill {

using TextView = std::u16string_view;

// Columns per row of a host display.
inline constexpr std::size_t kRowWidth = 80;

inline constexpr char16_t kBlank = u' ';

// Without leading and trailing blanks. Tabs and line breaks stay.
TextView Trimmed(TextView text);
TextView TrimmedLeft(TextView text);
TextView TrimmedRight(TextView text);

// `count` characters from column `first` (counted from 1), fewer when the text ends before. A first column below 1 or a
// negative count raises 5, as the automation run time's Mid does.
TextView Columns(TextView text, std::ptrdiff_t first, std::ptrdiff_t count);

// Everything from column `first` (counted from 1) on. A first column below 1 raises 5.
TextView FromColumn(TextView text, std::ptrdiff_t first);

// The first or last `count` characters, the whole text when it is shorter. A negative count raises 5.
TextView FirstColumns(TextView text, std::ptrdiff_t count);
TextView LastColumns(TextView text, std::ptrdiff_t count);

// The column (counted from 1) at which `sought` first stands in `text` at or behind column `from`; 0 when it does not.
// Case-sensitive. A `from` below 1 raises 5.
std::ptrdiff_t ColumnOf(TextView text, TextView sought, std::ptrdiff_t from = 1);

bool Contains(TextView text, TextView sought);
bool HasLineBreak(TextView text);  // CR or LF
bool StartsWith(TextView text, TextView head);

// What stands before the first `mark`; the whole text when it has none.
TextView Before(TextView text, TextView mark);

// Every `sought` replaced by `replacement`.
std::u16string Replaced(TextView text, TextView sought, TextView replacement);

// The n-th field (counted from 1) of the text cut at every `delimiter`; empty when there is no such field. Fields
// between neighbouring delimiters are empty and count.
TextView FieldOf(TextView text, std::int32_t n, TextView delimiter);

// The n-th display line (counted from 1), empty past the end. A text that holds a line break is cut at CR LF, CR or LF;
// a text without any is cut into rows of 80. Trailing blanks stay. Costs a walk over the text: readers that want line
// after line use DisplayLines.
TextView LineOf(TextView text, std::int32_t n);

// The lines of a display in order: what LineOf(text, 1), LineOf(text, 2), ... return, in one walk over the text.
class DisplayLines {
 public:
  explicit DisplayLines(TextView text);

  // The next line; empty past the end, as often as asked.
  TextView Next();

  // What has not been walked over yet.
  TextView Rest() const { return text_.substr(position_); }

  // What Next would return, without moving on.
  TextView Peek() const;

  // Whether the walk has passed the end of the text: the lines from here on are all empty.
  bool AtEnd() const { return position_ >= text_.size(); }

 private:
  TextView text_;
  std::size_t position_ = 0;
  bool broken_ = false;  // the text holds line breaks; otherwise it is cut into rows
};

// Tells of one line after another whether a mark stands in it. Every place of the text is looked at once, and the space
// between two marks in one go, however many lines it holds.
class MarkInLines {
 public:
  // `mark` is not empty.
  MarkInLines(TextView text, TextView mark);

  // `line` is a part of the text, not in front of the one asked about last.
  bool IsIn(TextView line);

 private:
  TextView text_;
  TextView mark_;
  std::size_t next_;  // where the mark stands next
};

// ASCII digit test and case mapping: host displays know no other letters.
bool IsDigit(char16_t character);
bool IsCapital(char16_t character);  // A to Z
std::u16string UpperCase(TextView text);
int CompareWithoutCase(TextView left, TextView right);  // below, equal to or above 0

// For messages and file names. Unpaired surrogates become U+FFFD; bytes that are no UTF-8 likewise.
std::string ToUtf8(TextView text);
std::u16string FromUtf8(std::string_view text);

// A whole number as decimal text.
std::u16string DecimalText(std::int64_t number);

}  // namespace wendrill
