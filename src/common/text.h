// Text as the host's displays need it: UTF-16, columns and lines counted from 1, blanks (U+0020) the only white space.
//
// Functions take views and return views: a function copies only when its result cannot be a view. What is not found is
// an empty view, or column 0.
//
// Terms such as PNR, entry, segment and association: docs/glossary.md.
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

// The prompt: what the host shows where it waits for an entry.
inline constexpr TextView kPrompt = u"> ";

// Without leading and trailing blanks. Tabs and line breaks stay.
TextView Trimmed(TextView text);
TextView TrimmedLeft(TextView text);
TextView TrimmedRight(TextView text);

// `count` characters from column `first` (counted from 1), fewer when the text ends before. A first column below 1 or a
// negative count raises 5, as the automation run time's Mid does.
TextView Columns(TextView text, std::ptrdiff_t first, std::ptrdiff_t count);

// A fixed field of a line: `count` characters from column `first` (counted from 1).
struct ColumnRange {
  std::ptrdiff_t first;
  std::ptrdiff_t count;
};
inline TextView Columns(TextView text, ColumnRange range) {
  return Columns(text, range.first, range.count);
}

// The same field `columns` columns further right.
constexpr ColumnRange Shifted(ColumnRange range, std::ptrdiff_t columns) {
  return {range.first + columns, range.count};
}

// Everything from column `first` (counted from 1) on. A first column below 1 raises 5.
TextView FromColumn(TextView text, std::ptrdiff_t first);

// The first or last `count` characters, the whole text when it is shorter. A negative count raises 5.
TextView FirstColumns(TextView text, std::ptrdiff_t count);
TextView LastColumns(TextView text, std::ptrdiff_t count);

// The column (counted from 1) of the first `sought` in `text` at or after column `from`; 0 when there is no such
// column. Case-sensitive. A `from` below 1 raises 5.
std::ptrdiff_t ColumnOf(TextView text, TextView sought, std::ptrdiff_t from = 1);

bool Contains(TextView text, TextView sought);
bool HasLineBreak(TextView text);  // CR or LF
bool StartsWith(TextView text, TextView head);

// The part of the text before the first `mark`; the whole text when it contains no `mark`.
TextView Before(TextView text, TextView mark);

// The text with every `sought` replaced by `replacement`.
std::u16string Replaced(TextView text, TextView sought, TextView replacement);

// The n-th field (counted from 1) of the text cut at every `delimiter`; empty when there is no such field. A field
// between two neighbouring delimiters is empty, and is counted.
TextView FieldOf(TextView text, std::int32_t n, TextView delimiter);

// The n-th display line (counted from 1), empty past the end. A text that contains a line break is split at CR LF, CR
// or LF; a text without line breaks is split into rows of 80 characters. Trailing blanks stay. Each call reads the text
// from its start: to read line after line, use DisplayLines.
TextView LineOf(TextView text, std::int32_t n);

// The lines of a display in order: what LineOf(text, 1), LineOf(text, 2), ... return, in one pass over the text.
class DisplayLines {
 public:
  explicit DisplayLines(TextView text);

  // The next line; an empty view on every call past the end.
  TextView Next();

  // The text from the next line on.
  TextView Rest() const { return text_.substr(position_); }

  // The line that Next would return, without advancing.
  TextView Peek() const;

  // Whether the end of the text is reached: all further lines are empty.
  bool AtEnd() const { return position_ >= text_.size(); }

 private:
  TextView text_;
  std::size_t position_ = 0;
  bool broken_ = false;  // the text contains line breaks; otherwise it is split into rows
};

// Whether each of a text's lines, asked for in order, contains a mark. The text is searched once in all, not once per
// line: the search remembers the next mark and answers from that for every line before it.
class MarkInLines {
 public:
  // `mark` is not empty.
  MarkInLines(TextView text, TextView mark);

  // REQUIRES: `line` is a view into the text and begins at or after the line of the previous call.
  bool IsIn(TextView line);

 private:
  TextView text_;
  TextView mark_;
  std::size_t next_;  // index of the next mark
};

// ASCII digit test and case mapping: host displays contain no other letters.
bool IsDigit(char16_t character);
bool IsCapital(char16_t character);  // A to Z
std::u16string UpperCase(TextView text);
int CompareWithoutCase(TextView left, TextView right);  // negative, 0 or positive

// For messages and file names. Unpaired surrogates and bytes that are not valid UTF-8 become U+FFFD.
std::string ToUtf8(TextView text);
std::u16string FromUtf8(std::string_view text);

// An integer as a decimal string.
std::u16string DecimalText(std::int64_t number);

}  // namespace wendrill
