// PageCollector joins the pages of one response into one text. page_collector.cpp explains the algorithm.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "common/text.h"
#include "session/page_joiner.h"
#include "session/page_rules.h"

namespace wendrill {

class PageCollector {
 public:
  // `entry` is the entry to which the pages are the response; `responseType` is the toolkit's number for the type of
  // the response.
  PageCollector(TextView entry, std::int16_t responseType);

  // Adds the next page of the response; `page` is the buffer exactly as the host returned it. Returns true when the
  // mark of the page shows that the host has a further page.
  bool Take(std::u16string page);

  // The page that was added last, with its mark and the text after the mark. An idle first row has been removed: a
  // blank row, or a row that WithoutIdleFirstRow drops because of the entry.
  const std::u16string& Page() const { return page_; }

  // Moves the joined text of all added pages out of the collector.
  std::u16string TakeText() { return text_.Take(); }

 private:
  TextView PartOf(const PageMark& mark) const;
  std::ptrdiff_t PnrColumn(std::ptrdiff_t end) const;

  std::u16string entry_;
  bool pnrStyle_;                    // the response is a PNR display
  bool continuationStyle_;           // a page continues the page before it: no repeated line is dropped
  bool firstRowRemembered_ = false;  // a page had the mark "MORE", so PnrColumn skips row 1
  bool isFirstPage_ = true;
  std::u16string page_;
  std::u16string previousPage_;
  PageJoiner text_;
};

}  // namespace wendrill
