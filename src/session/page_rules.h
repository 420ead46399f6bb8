// The rules for reading one page of a response. Each rule needs only one page, or two neighbouring pages. The page
// collector applies the rules in their order.
//
// A page is a screen's text: rows of 80 characters without line breaks. Columns count from 1.
#pragma once

#include <cstddef>
#include <cstdint>

#include "common/text.h"

namespace wendrill {

// The entry that asks the host for the next page.
inline constexpr TextView kNextPageEntry = u"MD";

// The page without an idle first row. The first row is idle when it is blank, or when `entry`, the entry that began the
// collection, contains "4505" or "PF24"; otherwise the page is returned whole.
TextView WithoutIdleFirstRow(TextView page, TextView entry);

// Where a page's own text ends, and whether the host has a further page.
struct PageMark {
  enum class Kind {
    None,          // no further page
    PageNumber,    // a page number such as 2/5: further pages
    LastPage,      // a page number such as 5/5
    Continuation,  // "MORE": further pages
  };
  Kind kind = Kind::None;
  std::ptrdiff_t column = 0;  // of the mark; the page's own text ends before it

  bool HasFurtherPage() const { return kind == Kind::PageNumber || kind == Kind::Continuation; }
};

// The mark of a page. A page number takes precedence, so that "MORE" in the text of a last page is ignored.
PageMark MarkOf(TextView page);

// The column after the leading lines that the page repeats from the previous page.
std::ptrdiff_t ColumnBehindRepeatedLines(TextView page, TextView previousPage);

// The page without its first row if the page contains the title of a PNR display; otherwise the whole page.
TextView WithoutPnrTitle(TextView page);

// Whether another page of a ticketing display follows: the last character other than a blank is ")".
bool TicketingGoesOn(TextView page);

// Whether a display ends with this page: the page contains "END OF DISPLAY", its page number is that of the last page,
// or its last line that is not blank is "." alone.
bool EndsDisplay(TextView page);

// The text from its n-th display line (counted from 1) on; empty past the end.
TextView FromLine(TextView text, std::int32_t n);

}  // namespace wendrill
