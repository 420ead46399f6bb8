// Joins the pages of one response into one text. The algorithm is explained in page_collector.cpp.
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
  // `entry` is the entry that began the collection, `responseType` the type of its response.
  PageCollector(TextView entry, std::int16_t responseType);

  // Adds the next page, unchanged from the host. Returns whether the host has a further page.
  bool Take(std::u16string page);

  // The page added last: with its mark and what follows it, but without an idle first row.
  const std::u16string& Page() const { return page_; }

  // Moves out the joined text of all pages added so far.
  std::u16string TakeText() { return text_.Take(); }

 private:
  TextView PartOf(const PageMark& mark) const;
  std::ptrdiff_t PnrColumn(std::ptrdiff_t end) const;

  std::u16string entry_;
  bool pnrStyle_;
  bool continuationStyle_;           // pages continue each other: no repeated lines are dropped
  bool firstRowRemembered_ = false;  // after a "MORE" mark: the first row of a page is the display's title
  bool isFirstPage_ = true;
  std::u16string page_;
  std::u16string previousPage_;
  PageJoiner text_;
};

}  // namespace wendrill
