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

// What the page adds to the whole. A page with a further one behind it ends at its mark; the last page is whole. The
// PNR title is looked for on a response of one page without a number, and only there.
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

// Where a PNR's own text begins on a page that ends before column `end`: at "RP/", but not in a first row that is the
// display's title. A page without "RP/" is the PNR's from its first column on.
std::ptrdiff_t PageCollector::PnrColumn(std::ptrdiff_t end) const {
  const auto header = ColumnOf(FirstColumns(page_, end - 1), u"RP/");
  const std::ptrdiff_t behindFirstRow = firstRowRemembered_ ? std::ptrdiff_t{kRowWidth} + 1 : 1;
  return header > 0 ? std::max(header, behindFirstRow) : 1;
}

}  // namespace wendrill
