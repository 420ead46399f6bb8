#include "common/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>

#include "common/error.h"

namespace wendrill {
namespace {

// Searching
//
// Most of the library's own work on a display is a search for a marker or for the end of a line, and nearly every
// position of a display does not match. So a search has two tests:
//   - The cheap test looks at one or two characters without branching, and runs over whole blocks of kBlock positions.
//     Such a loop has a fixed length and no early exit, so that compilers turn it into vector instructions.
//   - The exact test runs only at positions where the cheap test is true.
//
//   FindLineBreak   cheap: the character is not above CR                   exact: it is CR or LF
//   Find            cheap: the needle's first and last letter match        exact: all characters match
//
// The "letters" of Find are the first and the last character of the needle that are not blanks. Displays are padded
// with blanks, so that for the needle " FS " the cheap test would be true at every padding blank if it compared blanks.
//
// When the cheap test is true somewhere in a block, a second vectorised loop finds the first such position. The search
// runs the exact test at that position and continues after the position when the exact test is false.
//
// Invariant of FirstIndex: no position in [from, at) satisfies both tests, and every position that a block loop reads
// is in [from, end). The caller chooses `end` so that the cheap test at end - 1 still reads inside the text.
//
// The last block is moved back so that it ends at `end`; no scalar loop is then needed for a remainder. The moved block
// may contain positions before `at`, which have been tested already. When the cheap test is true at such a position,
// the positions from `at` on are tested one by one. A range shorter than one block is tested position by position.
//
// Cost: linear in the text for line breaks. For a needle, the cost is the text's length times the needle's length in
// the worst case (a display of one repeated character), and linear for real displays. No memory is allocated.
//
// Tests: comparison with a slow search on random texts with many near matches, from the empty text to several blocks
// (tests/unit/common/text_random_test.cpp), also under the address sanitizer.

constexpr std::size_t kNotFound = TextView::npos;

// The number of positions in a block. Compilers unroll loops over fewer positions instead of vectorising them.
constexpr std::size_t kBlock = 32;

// Whether the cheap test is true anywhere in the block that begins at index `at`.
template <typename MayMatch>
bool HoldsInBlock(std::size_t at, MayMatch mayMatch) {
  std::uint16_t hits = 0;  // 16 bits, as wide as a character: comparing and collecting use equally wide vector lanes
  for (std::size_t i = 0; i < kBlock; ++i) {
    hits = static_cast<std::uint16_t>(hits | (mayMatch(at + i) ? 0xFFFF : 0));
  }
  return hits != 0;
}

// The first index at which the cheap test is true in the block that begins at `at`; the index after the block when
// there is no such index.
template <typename MayMatch>
std::size_t FirstInBlock(std::size_t at, MayMatch mayMatch) {
  auto first = static_cast<std::int16_t>(kBlock);
  for (std::size_t i = 0; i < kBlock; ++i) {
    first = std::min(first, static_cast<std::int16_t>(mayMatch(at + i) ? i : kBlock));
  }
  return at + static_cast<std::size_t>(first);
}

// Returns what FirstIndex returns, but tests one position after the other instead of blocks.
template <typename MayMatch, typename Matches>
std::size_t FirstOneByOne(std::size_t from, std::size_t end, MayMatch mayMatch, Matches matches) {
  for (std::size_t at = from; at < end; ++at) {
    if (mayMatch(at) && matches(at)) {
      return at;
    }
  }
  return kNotFound;
}

// The first index in [from, end) at which both tests are true; kNotFound when there is no such index. `mayMatch` is the
// cheap test and must not branch. `matches` is the exact test and is called only where the cheap test is true.
template <typename MayMatch, typename Matches>
std::size_t FirstIndex(std::size_t from, std::size_t end, MayMatch mayMatch, Matches matches) {
  if (end < from + kBlock) {
    return FirstOneByOne(from, end, mayMatch, matches);
  }
  for (std::size_t at = from; at < end;) {
    const std::size_t block = std::min(at, end - kBlock);  // the last block may overlap the block before it
    if (!HoldsInBlock(block, mayMatch)) {
      at = block + kBlock;
      continue;
    }
    const std::size_t hit = FirstInBlock(block, mayMatch);
    if (hit < at) {
      return FirstOneByOne(at, end, mayMatch, matches);
    }
    if (matches(hit)) {
      return hit;
    }
    at = hit + 1;
  }
  return kNotFound;
}

// The first index at or after `from` at which `text` contains `sought`; kNotFound when there is no such index. `sought`
// must not be empty. The cheap test compares only two characters of `sought`, the first and the last that are not
// blanks, and rules out nearly every other index.
std::size_t Find(TextView text, TextView sought, std::size_t from) {
  if (sought.size() > text.size()) {
    return kNotFound;
  }
  const std::size_t toFirst = std::min(sought.find_first_not_of(u' '), sought.size() - 1);
  const std::size_t toLast = std::min(sought.find_last_not_of(u' '), sought.size() - 1);
  const char16_t* characters = text.data();
  const auto lettersMatch = [first = sought[toFirst], last = sought[toLast], atFirst = characters + toFirst,
                             atLast = characters + toLast](std::size_t at) {
    return ((atFirst[at] ^ first) | (atLast[at] ^ last)) == 0;
  };
  return FirstIndex(from, text.size() - (sought.size() - 1), lettersMatch,
                    [=](std::size_t at) { return std::equal(sought.begin(), sought.end(), characters + at); });
}

// The index of the first CR or LF at or after `from`; kNotFound when the text has no line break from there on.
std::size_t FindLineBreak(TextView text, std::size_t from) {
  const char16_t* characters = text.data();
  return FirstIndex(
      from, text.size(), [=](std::size_t at) { return characters[at] <= u'\r'; },
      [=](std::size_t at) { return characters[at] == u'\r' || characters[at] == u'\n'; });
}

// The index (counted from 0) of a column (counted from 1), but at most the text's length. Raises 5 (invalid argument)
// for a column below 1.
std::size_t IndexOfColumn(TextView text, std::ptrdiff_t column) {
  if (column < 1) {
    Raise(RunTimeError::InvalidCall);
  }
  return std::min(static_cast<std::size_t>(column - 1), text.size());
}

// `count` as an unsigned length. Raises 5 (invalid argument) when `count` is negative.
std::size_t LengthOf(std::ptrdiff_t count) {
  if (count < 0) {
    Raise(RunTimeError::InvalidCall);
  }
  return static_cast<std::size_t>(count);
}

char16_t Capital(char16_t character) {
  const bool isSmall = character >= u'a' && character <= u'z';
  return isSmall ? static_cast<char16_t>(character - u'a' + u'A') : character;
}

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kHighestCodePoint = 0x10FFFF;
constexpr char32_t kFirstSupplementary = 0x10000;

bool IsSurrogate(char32_t unit) {
  return unit >= 0xD800 && unit <= 0xDFFF;
}
bool IsHighSurrogate(char32_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}
bool IsLowSurrogate(char32_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

void AppendUtf8(std::string& bytes, char32_t point) {
  const auto append = [&bytes](char32_t byte) { bytes.push_back(static_cast<char>(static_cast<unsigned char>(byte))); };
  if (point < 0x80) {
    append(point);
  } else if (point < 0x800) {
    append(0xC0 | (point >> 6));
    append(0x80 | (point & 0x3F));
  } else if (point < kFirstSupplementary) {
    append(0xE0 | (point >> 12));
    append(0x80 | ((point >> 6) & 0x3F));
    append(0x80 | (point & 0x3F));
  } else {
    append(0xF0 | (point >> 18));
    append(0x80 | ((point >> 12) & 0x3F));
    append(0x80 | ((point >> 6) & 0x3F));
    append(0x80 | (point & 0x3F));
  }
}

void AppendUtf16(std::u16string& text, char32_t point) {
  if (point < kFirstSupplementary) {
    text.push_back(static_cast<char16_t>(point));
    return;
  }
  const char32_t rest = point - kFirstSupplementary;
  text.push_back(static_cast<char16_t>(0xD800 + (rest >> 10)));
  text.push_back(static_cast<char16_t>(0xDC00 + (rest & 0x3FF)));
}

// A row of the table kUtf8Forms. A first byte whose bits under `mask` equal `mark` begins a sequence of `length` bytes;
// `lowest` is the lowest code point that needs a sequence of that length.
struct Utf8Form {
  unsigned char mask;
  unsigned char mark;
  std::size_t length;
  char32_t lowest;
};

constexpr std::array kUtf8Forms = {
    Utf8Form{0x80, 0x00, 1, 0},
    Utf8Form{0xE0, 0xC0, 2, 0x80},
    Utf8Form{0xF0, 0xE0, 3, 0x800},
    Utf8Form{0xF8, 0xF0, 4, kFirstSupplementary},
};

struct Decoded {
  char32_t point;
  std::size_t length;  // the number of bytes that were decoded
};

// The code point at the beginning of `bytes`, which must not be empty. When `bytes` do not begin with a valid UTF-8
// sequence, only the first byte is decoded, as U+FFFD.
Decoded DecodeUtf8(std::string_view bytes) {
  constexpr Decoded kInvalid = {kReplacement, 1};
  const auto lead = static_cast<unsigned char>(bytes.front());
  const auto* form = std::ranges::find_if(kUtf8Forms, [lead](const Utf8Form& f) { return (lead & f.mask) == f.mark; });
  if (form == kUtf8Forms.end() || bytes.size() < form->length) {
    return kInvalid;
  }
  auto point = static_cast<char32_t>(lead & ~form->mask);
  for (const char byte : bytes.substr(1, form->length - 1)) {
    const auto next = static_cast<unsigned char>(byte);
    if ((next & 0xC0) != 0x80) {
      return kInvalid;
    }
    point = (point << 6) | (next & 0x3Fu);
  }
  const bool isValid = point >= form->lowest && point <= kHighestCodePoint && !IsSurrogate(point);
  return isValid ? Decoded{point, form->length} : kInvalid;
}

}  // namespace

TextView Trimmed(TextView text) {
  return TrimmedLeft(TrimmedRight(text));
}

TextView TrimmedLeft(TextView text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlank), text.size()));
  return text;
}

TextView TrimmedRight(TextView text) {
  // Rows are padded with blanks, so four characters at once are compared with four blanks, as one 64-bit number.
  constexpr std::uint64_t kBlanks = 0x0020'0020'0020'0020;
  constexpr std::size_t kAtOnce = sizeof(kBlanks) / sizeof(char16_t);
  std::uint64_t last = kBlanks;
  while (text.size() >= kAtOnce && last == kBlanks) {
    std::memcpy(&last, text.data() + text.size() - kAtOnce, sizeof(last));
    text.remove_suffix(last == kBlanks ? kAtOnce : 0);
  }
  while (!text.empty() && text.back() == kBlank) {
    text.remove_suffix(1);
  }
  return text;
}

TextView Columns(TextView text, std::ptrdiff_t first, std::ptrdiff_t count) {
  return text.substr(IndexOfColumn(text, first), LengthOf(count));
}

TextView FromColumn(TextView text, std::ptrdiff_t first) {
  return text.substr(IndexOfColumn(text, first));
}

TextView FirstColumns(TextView text, std::ptrdiff_t count) {
  return text.substr(0, LengthOf(count));
}

TextView LastColumns(TextView text, std::ptrdiff_t count) {
  return text.substr(text.size() - std::min(LengthOf(count), text.size()));
}

std::ptrdiff_t ColumnOf(TextView text, TextView sought, std::ptrdiff_t from) {
  const std::size_t start = IndexOfColumn(text, from);
  if (start == text.size()) {
    return 0;
  }
  // An empty `sought` is found at column `from`, as in the automation run time's InStr.
  const std::size_t at = sought.empty() ? start : Find(text, sought, start);
  return at == kNotFound ? 0 : static_cast<std::ptrdiff_t>(at) + 1;
}

bool Contains(TextView text, TextView sought) {
  return sought.empty() || Find(text, sought, 0) != kNotFound;
}

bool HasLineBreak(TextView text) {
  return FindLineBreak(text, 0) != kNotFound;
}

bool StartsWith(TextView text, TextView head) {
  return text.starts_with(head);
}

TextView Before(TextView text, TextView mark) {
  return mark.empty() ? text : text.substr(0, Find(text, mark, 0));
}

std::u16string Replaced(TextView text, TextView sought, TextView replacement) {
  std::u16string result;
  std::size_t from = 0;
  while (!sought.empty()) {
    const std::size_t at = Find(text, sought, from);
    if (at == kNotFound) {
      break;
    }
    result.append(text, from, at - from).append(replacement);
    from = at + sought.size();
  }
  return result.append(text, from);
}

TextView FieldOf(TextView text, std::int32_t n, TextView delimiter) {
  if (n < 1) {
    return {};
  }
  for (std::int32_t field = 1; field < n; ++field) {
    const std::size_t at = delimiter.empty() ? kNotFound : Find(text, delimiter, 0);
    if (at == kNotFound) {
      return {};
    }
    text.remove_prefix(at + delimiter.size());
  }
  return Before(text, delimiter);
}

TextView LineOf(TextView text, std::int32_t n) {
  if (n < 1) {
    return {};
  }
  DisplayLines lines(text);
  for (std::int32_t line = 1; line < n && !lines.AtEnd(); ++line) {
    lines.Next();
  }
  return lines.Next();
}

DisplayLines::DisplayLines(TextView text) : text_(text), broken_(HasLineBreak(text)) {}

TextView DisplayLines::Next() {
  if (AtEnd()) {
    return {};
  }
  const TextView rest = text_.substr(position_);
  if (!broken_) {
    const TextView row = rest.substr(0, kRowWidth);
    position_ += row.size();
    return row;
  }
  const TextView line = rest.substr(0, FindLineBreak(rest, 0));
  const TextView lineBreak = rest.substr(line.size());
  position_ += line.size() + (lineBreak.starts_with(u"\r\n") ? 2 : std::min<std::size_t>(lineBreak.size(), 1));
  return line;
}

TextView DisplayLines::Peek() const {
  return DisplayLines(*this).Next();
}

MarkInLines::MarkInLines(TextView text, TextView mark) : text_(text), mark_(mark), next_(Find(text, mark, 0)) {}

bool MarkInLines::IsIn(TextView line) {
  const auto begin = static_cast<std::size_t>(line.data() - text_.data());
  if (next_ < begin) {
    next_ = Find(text_, mark_, begin);
  }
  return next_ != kNotFound && next_ - begin + mark_.size() <= line.size();
}

bool IsDigit(char16_t character) {
  return character >= u'0' && character <= u'9';
}

bool IsCapital(char16_t character) {
  return character >= u'A' && character <= u'Z';
}

std::u16string UpperCase(TextView text) {
  std::u16string result(text);
  std::ranges::transform(result, result.begin(), Capital);
  return result;
}

int CompareWithoutCase(TextView left, TextView right) {
  const std::size_t common = std::min(left.size(), right.size());
  for (std::size_t i = 0; i < common; ++i) {
    const int difference = Capital(left[i]) - Capital(right[i]);
    if (difference != 0) {
      return difference;
    }
  }
  return left.size() == right.size() ? 0 : (left.size() < right.size() ? -1 : 1);
}

std::string ToUtf8(TextView text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t point = text[i];
    const bool isPair = IsHighSurrogate(point) && i + 1 < text.size() && IsLowSurrogate(text[i + 1]);
    if (isPair) {
      point = kFirstSupplementary + ((point - 0xD800) << 10) + (text[++i] - 0xDC00u);
    } else if (IsSurrogate(point)) {
      point = kReplacement;
    }
    AppendUtf8(bytes, point);
  }
  return bytes;
}

std::u16string FromUtf8(std::string_view text) {
  std::u16string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const Decoded next = DecodeUtf8(text);
    AppendUtf16(result, next.point);
    text.remove_prefix(next.length);
  }
  return result;
}

std::u16string DecimalText(std::int64_t number) {
  std::array<char, 20> digits;  // the longest number is -9223372036854775808
  char* end = std::to_chars(digits.begin(), digits.end(), number).ptr;
  return {digits.begin(), end};
}

}  // namespace wendrill
