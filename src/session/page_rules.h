// The rules by which one page of a response is read. Each looks at a single page (or at two neighbours) and nothing
// else; the page collector puts them in their order.
//
// A page is a screen's text: rows of 80 characters without line breaks. Columns count from 1.
#pragma once

#include <cstddef>
#include <cstdint>

#include "common/text.h"

namespace wendrill {

// The entry that has the host show the next page.
inline constexpr TextView kNextPageEntry = u"MD";

// The page without its first row, when that row says nothing: it is blank, or `entry`, the entry that began the
// collection, is one whose displays begin with a row of their own.
TextView WithoutIdleFirstRow(TextView page, TextView entry);

// Where a page ends and whether the host has a further one.
struct PageMark {
  enum class Kind {
    None,          // no further page
    PageNumber,    // a page number such as 2/5: further pages
    LastPage,      // a page number such as 5/5
    Continuation,  // "MORE": further pages
  };
  Kind kind = Kind::None;
  std::ptrdiff_t column = 0;  // of the mark; the page's own text stands before it

  bool HasFurtherPage() const { return kind == Kind::PageNumber || kind == Kind::Continuation; }
};

// The mark of a page. A page number is looked for first, so that on the last page a "MORE" in the text means nothing.
PageMark MarkOf(TextView page);

// The column behind the leading lines that the page shares with the page before it.
std::ptrdiff_t ColumnBehindRepeatedLines(TextView page, TextView previousPage);

// The page without its first row, when it holds the title of a PNR display.
TextView WithoutPnrTitle(TextView page);

// Whether a ticketing display goes on: its last character that is no blank is ")".
bool TicketingGoesOn(TextView page);

// Whether a display ends with this page: it says so, its page number is that of the last page, or its last line that is
// not blank is a full stop alone.
bool EndsDisplay(TextView page);

// The text from its n-th display line (counted from 1) on; empty past the end.
TextView FromLine(TextView text, std::int32_t n);

}  // namespace wendrill
