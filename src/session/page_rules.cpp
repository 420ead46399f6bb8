#include "session/page_rules.h"

#include <algorithm>
#include <iterator>

namespace wendrill {
namespace {

constexpr std::ptrdiff_t kRow = kRowWidth;

constexpr TextView kPageNumberMark = u")>";
constexpr TextView kContinuationMark = u"MORE     ";  // "MORE" and five blanks

// The mark before the page number on the displays that show the word PAGE before the number.
constexpr TextView kWidePageNumberMark =
    u">"
    u"                                                 "  // 49 blanks
    u"PAGE";
static_assert(kWidePageNumberMark.size() == 1 + 49 + 4);

constexpr std::ptrdiff_t kPageNumberWidth = 10;

// Reads the two numbers after the page-number mark `mark` at `column`: the number of this page and the number of the
// last page. Returns a mark of Kind::LastPage when the numbers are equal or both are missing, of Kind::PageNumber when
// they differ and a "/" separates them, and of Kind::None when they differ without a "/".
PageMark PageNumberMarkAt(TextView page, std::ptrdiff_t column, TextView mark) {
  const auto behind = column + static_cast<std::ptrdiff_t>(mark.size());
  const TextView numbers = Trimmed(Columns(page, behind, kPageNumberWidth));
  const TextView thisPage = Trimmed(FieldOf(numbers, 1, u"/"));
  const TextView lastPage = Trimmed(FieldOf(numbers, 2, u"/"));
  if (thisPage == lastPage) {
    return {PageMark::Kind::LastPage, column};
  }
  return Contains(numbers, u"/") ? PageMark{PageMark::Kind::PageNumber, column} : PageMark{};
}

PageMark FindPageNumber(TextView page) {
  if (const auto column = ColumnOf(page, kPageNumberMark); column > 0) {
    return PageNumberMarkAt(page, column, kPageNumberMark);
  }
  if (const auto column = ColumnOf(page, kWidePageNumberMark); column > 0) {
    return PageNumberMarkAt(page, column, kWidePageNumberMark);
  }
  return {};
}

bool ContinuesAt(TextView page, std::ptrdiff_t column) {
  return StartsWith(FromColumn(page, column), kContinuationMark);
}

// Whether the mark "MORE" begins one of the last two rows. A prompt of a few characters may follow the last whole row,
// so the columns of the last two rows are computed in three ways:
//   - from the beginning of the page: an incomplete last row counts as a row
//   - from the end of the page, when the page ends with a whole row
//   - from the end of the page, when one character follows the last whole row
bool ContinuesInTheLastRows(TextView page) {
  const std::ptrdiff_t length = std::ssize(page);
  const std::ptrdiff_t lastRow = (length - 1) / kRow * kRow + 1;
  const std::ptrdiff_t columns[] = {
      lastRow,           lastRow - kRow,         // counted from the beginning
      length - kRow + 1, length - 2 * kRow + 1,  // counted from the end: the page ends with a whole row
      length - kRow,     length - 2 * kRow};     // counted from the end: one character follows the last whole row
  return std::any_of(std::begin(columns), std::end(columns),
                     [&](std::ptrdiff_t column) { return ContinuesAt(page, column); });
}

// The mark "MORE" of a page; Kind::None when the page has no valid mark. The mark is valid at the beginning of one of
// the last two rows, and anywhere on a page of up to two rows. Intentional: the page's text ends at the first
// occurrence of the mark, even when only a later occurrence is valid.
PageMark FindContinuation(TextView page) {
  const bool isShort = std::ssize(page) <= 2 * kRow;
  if (!isShort && !ContinuesInTheLastRows(page)) {
    return {};
  }
  const auto column = ColumnOf(page, kContinuationMark);
  return column > 0 ? PageMark{PageMark::Kind::Continuation, column} : PageMark{};
}

}  // namespace

TextView WithoutIdleFirstRow(TextView page, TextView entry) {
  const bool isBlank = Trimmed(FirstColumns(page, kRow)).empty();
  const bool hasRowOfItsOwn = Contains(entry, u"4505") || Contains(entry, u"PF24");
  return isBlank || hasRowOfItsOwn ? FromColumn(page, kRow + 1) : page;
}

PageMark MarkOf(TextView page) {
  const PageMark number = FindPageNumber(page);
  return number.kind == PageMark::Kind::None ? FindContinuation(page) : number;
}

std::ptrdiff_t ColumnBehindRepeatedLines(TextView page, TextView previousPage) {
  DisplayLines lines(page);
  DisplayLines previousLines(previousPage);
  while (!lines.AtEnd() && !previousLines.AtEnd() && lines.Peek() == previousLines.Peek()) {
    lines.Next();
    previousLines.Next();
  }
  return lines.AtEnd() ? std::ssize(page) + 1 : lines.Peek().data() - page.data() + 1;
}

TextView WithoutPnrTitle(TextView page) {
  const bool hasTitle = Contains(page, u"--- TST TC-BIZ RLP ---") || Contains(page, u"--- TC-BIZ RLP ---");
  return hasTitle ? FromColumn(page, kRow + 1) : page;
}

bool TicketingGoesOn(TextView page) {
  return TrimmedRight(page).ends_with(u')');
}

bool EndsDisplay(TextView page) {
  if (Contains(page, u"END OF DISPLAY") || FindPageNumber(page).kind == PageMark::Kind::LastPage) {
    return true;
  }
  TextView last;
  for (DisplayLines lines(page); !lines.AtEnd();) {
    const TextView line = Trimmed(lines.Next());
    last = line.empty() ? last : line;
  }
  return last == u".";
}

TextView FromLine(TextView text, std::int32_t n) {
  DisplayLines lines(text);
  for (std::int32_t line = 1; line < n && !lines.AtEnd(); ++line) {
    lines.Next();
  }
  return lines.AtEnd() ? TextView() : FromColumn(text, lines.Peek().data() - text.data() + 1);
}

}  // namespace wendrill
