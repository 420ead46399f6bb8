// How the pages of a response are joined
//
// The host shows a long response page by page. The text of a page may be followed by a mark, which shows whether
// another page follows. The entry "MD" makes the host show the next page. The collector receives the pages in order and
// joins them. It drops the mark of each page that another page follows, and the leading lines that a page repeats from
// the page before it. The collector sends nothing: page_readers.cpp fetches the pages.
//
// The collector does the following with each page, in this order:
//   1. It drops an idle first row, which is blank or belongs to certain entries (WithoutIdleFirstRow).
//   2. It finds the mark (MarkOf): a page number "x/y", or "MORE". A page number takes precedence.
//   3. It chooses the part of the page to append (PartOf). The rules for the part are listed below.
//   4. It appends the part at the start of a row (PageJoiner).
//
// The part ends before the mark when another page follows. The part of the last page ends at the end of the page.
//
// The part begins at column 1, with these exceptions:
//   - In a PNR display (response type 22), the part of a page that another page follows begins at "RP/".
//   - In a display without continuation style, the part of a page begins after the leading lines that equal the leading
//     lines of the previous page, because each page repeats the first lines of the display. A display has continuation
//     style when its response type is 23, and from the first page with the mark "MORE" on: each page then continues the
//     page before it, and no line is dropped.
//   - When the first two rules name different columns, the part begins at the later column.
//   - A PNR display that consists of one page without a mark is appended without its title row.
//
// Invariant: after Take, text_ contains exactly the chosen parts of all pages so far, and page_ is the newest page with
// its mark. A page is compared only with the page directly before it.
//
// Cost: linear in the text of all pages. Each page is searched a fixed number of times and copied once.
//
// Tests: examples for each rule; a comparison with a slow reference implementation, on random displays and with a mark
// at every position of a page (tests/unit/session/page_collector_test.cpp, tests/support/reference_page_collector.h);
// fuzzing against that reference implementation (fuzz/page_collector_fuzz.cpp).
#include "session/page_collector.h"

#include <algorithm>
#include <utility>

namespace wendrill {
namespace {

constexpr std::int16_t kContinuationResponse = 23;
constexpr std::int16_t kPnrResponse = 22;

}  // namespace

PageCollector::PageCollector(TextView entry, std::int16_t responseType)
    : entry_(entry),
      pnrStyle_(responseType == kPnrResponse),
      continuationStyle_(responseType == kContinuationResponse) {}

bool PageCollector::Take(std::u16string page) {
  page.erase(0, page.size() - WithoutIdleFirstRow(page, entry_).size());
  previousPage_ = std::exchange(page_, std::move(page));
  const PageMark mark = MarkOf(page_);
  if (mark.kind == PageMark::Kind::Continuation) {
    continuationStyle_ = true;
    firstRowRemembered_ = true;
  }
  text_.Add(PartOf(mark));
  isFirstPage_ = false;
  return mark.HasFurtherPage();
}

// The part of the current page to append. When another page follows, the part ends before the mark; the part of the
// last page ends at the end of the page. The title row of a PNR is dropped only when the first page of the response has
// no mark.
TextView PageCollector::PartOf(const PageMark& mark) const {
  if (isFirstPage_ && mark.kind == PageMark::Kind::None) {
    return pnrStyle_ ? WithoutPnrTitle(page_) : TextView(page_);
  }
  const auto end = mark.HasFurtherPage() ? mark.column : std::ssize(page_) + 1;
  auto first = pnrStyle_ && mark.HasFurtherPage() ? PnrColumn(end) : 1;
  if (!isFirstPage_ && !continuationStyle_) {
    first = std::max(first, ColumnBehindRepeatedLines(page_, previousPage_));
  }
  return first < end ? Columns(page_, first, end - first) : TextView();
}

// The column at which the text of the PNR begins on a page whose text ends before column `end`: the column of "RP/";
// column 1 on a page without "RP/". Once a page of the response has had the mark "MORE", the first row does not count:
// when "RP/" is in the first row, the result is column 81, the beginning of the second row.
std::ptrdiff_t PageCollector::PnrColumn(std::ptrdiff_t end) const {
  const auto header = ColumnOf(FirstColumns(page_, end - 1), u"RP/");
  const std::ptrdiff_t behindFirstRow = firstRowRemembered_ ? std::ptrdiff_t{kRowWidth} + 1 : 1;
  return header > 0 ? std::max(header, behindFirstRow) : 1;
}

}  // namespace wendrill
