// Functions on the text of host displays. Text is UTF-16, columns and lines count from 1, and only the blank (U+0020)
// is white space.
//
// The functions take views and return views; a function copies only when its result cannot be a view. When the text
// does not contain what a function looks for, the result is an empty view or column 0, except where the comment of the
// function names another result.
//
// Terms such as PNR, entry, segment and association: docs/glossary.md.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace wendrill {

using TextView = std::u16string_view;

// The number of columns in a row of a host display.
inline constexpr std::size_t kRowWidth = 80;

inline constexpr char16_t kBlank = u' ';

// The prompt: the host's sign that it waits for the next entry.
inline constexpr TextView kPrompt = u"> ";

// Trimmed removes leading and trailing blanks, TrimmedLeft only leading blanks, TrimmedRight only trailing blanks. Tabs
// and line breaks are kept.
TextView Trimmed(TextView text);
TextView TrimmedLeft(TextView text);
TextView TrimmedRight(TextView text);

// Returns `count` characters from column `first` (counted from 1); fewer characters when the text ends earlier. Raises
// 5 (invalid argument) when `first` is below 1 or `count` is negative, as the automation run time's Mid does.
TextView Columns(TextView text, std::ptrdiff_t first, std::ptrdiff_t count);

// The place of a field in a line: `count` characters from column `first` (counted from 1).
struct ColumnRange {
  std::ptrdiff_t first;
  std::ptrdiff_t count;
};
inline TextView Columns(TextView text, ColumnRange range) {
  return Columns(text, range.first, range.count);
}

// The column range with the same width, `columns` columns further to the right.
constexpr ColumnRange Shifted(ColumnRange range, std::ptrdiff_t columns) {
  return {range.first + columns, range.count};
}

// The text from column `first` (counted from 1) to its end; empty when the text ends before that column. Raises 5
// (invalid argument) when `first` is below 1.
TextView FromColumn(TextView text, std::ptrdiff_t first);

// FirstColumns returns the first `count` characters of the text, LastColumns the last `count` characters. Both return
// the whole text when it is shorter, and raise 5 (invalid argument) when `count` is negative.
TextView FirstColumns(TextView text, std::ptrdiff_t count);
TextView LastColumns(TextView text, std::ptrdiff_t count);

// The column (counted from 1) of the first occurrence of `sought` at or after column `from`; 0 when there is no
// occurrence. Case-sensitive. An empty `sought` occurs at every column of the text. Raises 5 (invalid argument) when
// `from` is below 1.
std::ptrdiff_t ColumnOf(TextView text, TextView sought, std::ptrdiff_t from = 1);

bool Contains(TextView text, TextView sought);
bool HasLineBreak(TextView text);  // whether the text contains CR or LF
bool StartsWith(TextView text, TextView head);

// The part of the text before the first `mark`; the whole text when it does not contain `mark` or `mark` is empty.
TextView Before(TextView text, TextView mark);

// A copy of the text in which `replacement` replaces every occurrence of `sought`; an unchanged copy when `sought` is
// empty.
std::u16string Replaced(TextView text, TextView sought, TextView replacement);

// The n-th field of the text (`n` counts from 1); empty when the text has no n-th field. A `delimiter` separates two
// fields; when `delimiter` is empty, the whole text is the first field. Two neighbouring delimiters enclose an empty
// field, which counts.
TextView FieldOf(TextView text, std::int32_t n, TextView delimiter);

// The n-th display line (`n` counts from 1); empty when the text has no n-th line. A text that contains a line break is
// split at CR LF, CR or LF; a text without line breaks is split into rows of 80 characters. Trailing blanks are kept.
// Each call reads the text from its start: to read line after line, use DisplayLines.
TextView LineOf(TextView text, std::int32_t n);

// Reads the lines of a display in order: the lines that LineOf(text, 1), LineOf(text, 2) and so on return. Reading all
// lines takes only one pass over the text.
class DisplayLines {
 public:
  explicit DisplayLines(TextView text);

  // Returns the next line and advances to the line after it. After the last line, every call returns an empty view.
  TextView Next();

  // The text from the next line to the end.
  TextView Rest() const { return text_.substr(position_); }

  // The line that Next would return, without advancing.
  TextView Peek() const;

  // Whether the end of the text is reached, so that Next returns only empty views.
  bool AtEnd() const { return position_ >= text_.size(); }

 private:
  TextView text_;
  std::size_t position_ = 0;
  bool broken_ = false;  // the text contains line breaks; otherwise the lines are rows
};

// Finds out which lines of a text contain a mark; the caller asks for the lines in their order (IsIn). The text is
// searched only once in all, not once for each line: the object remembers the position of the next mark, and a line
// that ends before that position does not contain the mark.
class MarkInLines {
 public:
  // REQUIRES: `mark` is not empty.
  MarkInLines(TextView text, TextView mark);

  // Whether `line` contains the mark.
  // REQUIRES: `line` is a view into the text and begins at or after the beginning of the line of the previous call.
  bool IsIn(TextView line);

 private:
  TextView text_;
  TextView mark_;
  std::size_t next_;  // index of the next mark; TextView::npos when no mark follows
};

// Character tests and case mapping for ASCII alone: host displays contain no letters outside ASCII.
bool IsDigit(char16_t character);
bool IsCapital(char16_t character);  // whether the character is one of A to Z
std::u16string UpperCase(TextView text);
int CompareWithoutCase(TextView left, TextView right);  // negative when left < right, 0 when equal, else positive

// Conversions for messages and file names. Each unpaired surrogate, and each byte that is not part of valid UTF-8,
// becomes U+FFFD.
std::string ToUtf8(TextView text);
std::u16string FromUtf8(std::string_view text);

// An integer as a decimal string.
std::u16string DecimalText(std::int64_t number);

}  // namespace wendrill
