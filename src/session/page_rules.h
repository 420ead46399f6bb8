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

// The mark of a page. It shows where the page's own text ends and whether the host has a further page.
struct PageMark {
  enum class Kind {
    None,          // the page has no mark: no further page
    PageNumber,    // a page number such as 2/5: the host has a further page
    LastPage,      // a page number such as 5/5: no further page
    Continuation,  // "MORE": the host has a further page
  };
  Kind kind = Kind::None;
  std::ptrdiff_t column = 0;  // the column of the mark, before which the page's own text ends; 0 for Kind::None

  bool HasFurtherPage() const { return kind == Kind::PageNumber || kind == Kind::Continuation; }
};

// The mark of a page. A page number takes precedence over "MORE": on a page with a page number, "MORE" is ignored.
PageMark MarkOf(TextView page);

// The column after the leading lines of `page` that equal the leading lines of `previousPage`. One column past the end
// of `page` when all its lines are repeated.
std::ptrdiff_t ColumnBehindRepeatedLines(TextView page, TextView previousPage);

// The page without its first row when the page contains the title of a PNR display; otherwise the whole page.
TextView WithoutPnrTitle(TextView page);

// Whether another page of a ticketing display follows this page: the last character that is not a blank is ")".
bool TicketingGoesOn(TextView page);

// Whether this page is the last page of its display. It is the last page when it contains "END OF DISPLAY", when the
// two numbers of its page number are equal, or when its last line that is not blank is "." alone.
bool EndsDisplay(TextView page);

// The text from its n-th display line on (`n` counts from 1); empty when the text has no n-th line.
TextView FromLine(TextView text, std::int32_t n);

}  // namespace wendrill
