// The rules for reading the pages of a response. Each rule reads a single page, or a page and the page before it.
// page_collector.cpp and page_readers.cpp apply the rules.
//
// A page is the text of one screen: rows of 80 characters without line breaks. Columns count from 1.
#pragma once

#include <cstddef>
#include <cstdint>

#include "common/text.h"

namespace wendrill {

// The entry that asks the host for the next page.
inline constexpr TextView kNextPageEntry = u"MD";

// The page without its first row when that row is idle; otherwise the whole page. The first row is idle when it is
// blank, or when `entry`, the entry to which the page is a response, contains "4505" or "PF24".
TextView WithoutIdleFirstRow(TextView page, TextView entry);

// The mark that the host writes after the text of a page. The mark shows whether the host has a further page.
struct PageMark {
  enum class Kind {
    None,          // the page has no mark: no further page
    PageNumber,    // a page number such as 2/5: the host has a further page
    LastPage,      // a page number such as 5/5, or no number at all after the mark: no further page
    Continuation,  // the word "MORE": the host has a further page
  };
  Kind kind = Kind::None;
  std::ptrdiff_t column = 0;  // the column (counted from 1) at which the mark begins; 0 for Kind::None

  bool HasFurtherPage() const { return kind == Kind::PageNumber || kind == Kind::Continuation; }
};

// Returns the mark of a page; Kind::None when the page has no mark. A page number takes precedence over "MORE": on a
// page with a page number, "MORE" is ignored.
PageMark MarkOf(TextView page);

// Compares the lines of `page`, from the first line on, with the lines of `previousPage` that have the same numbers.
// Returns the column (counted from 1) at which the first line of `page` begins that differs or that `previousPage` does
// not have. Returns the length of `page` plus 1 when `previousPage` begins with all lines of `page`.
std::ptrdiff_t ColumnBehindRepeatedLines(TextView page, TextView previousPage);

// The page without its first row when the page contains the title of a PNR display, "--- TST TC-BIZ RLP ---" or
// "--- TC-BIZ RLP ---"; otherwise the whole page.
TextView WithoutPnrTitle(TextView page);

// Whether another page of a ticketing display follows `page`: true when the last character of `page` that is not a
// blank is ")".
bool TicketingGoesOn(TextView page);

// Whether `page` is the last page of its display. This is so in three cases:
//   - `page` contains "END OF DISPLAY".
//   - The two numbers after its page-number mark are equal, as in 5/5, or both missing.
//   - Its last line that is not blank is "." alone.
bool EndsDisplay(TextView page);

// The text from its n-th display line on (`n` counts from 1); empty when the text has no n-th line.
TextView FromLine(TextView text, std::int32_t n);

}  // namespace wendrill
