// Collects the pages of one response into one text, and keeps the pages themselves.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "common/text.h"
#include "session/page_joiner.h"
#include "session/page_rules.h"

namespace wendrill {

class PageCollector {
 public:
  // `entry` began the collection, `responseType` is the type of its response.
  PageCollector(TextView entry, std::int16_t responseType);

  // Takes the next page as it came from the host; returns whether the host has a further one.
  bool Take(std::u16string page);

  // Everything taken so far, joined.
  std::u16string TakeText() { return text_.Take(); }

  // The pages in order, each whole, with its mark, but without an idle first row.
  std::vector<std::u16string> TakePages() { return std::move(pages_); }

 private:
  TextView PartOf(TextView page, const PageMark& mark) const;
  std::ptrdiff_t PnrColumn(TextView page, std::ptrdiff_t end) const;
  bool IsFirstPage() const { return pages_.size() == 1; }

  std::u16string entry_;
  bool pnrStyle_;
  bool continuationStyle_;           // the text itself tells where pages meet: nothing is dropped as repeated
  bool firstRowRemembered_ = false;  // a continuation mark has been found: the first row is the display's title
  PageJoiner text_;
  std::vector<std::u16string> pages_;
};

}  // namespace wendrill
