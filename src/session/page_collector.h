// Collects the pages of one response into one text.
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
  // `entry` began the collection, `responseType` is the type of its response.
  PageCollector(TextView entry, std::int16_t responseType);

  // Takes the next page as it came from the host; returns whether the host has a further one.
  bool Take(std::u16string page);

  // The page taken last: whole, with its mark, but without an idle first row.
  const std::u16string& Page() const { return page_; }

  // Everything taken so far, joined.
  std::u16string TakeText() { return text_.Take(); }

 private:
  TextView PartOf(const PageMark& mark) const;
  std::ptrdiff_t PnrColumn(std::ptrdiff_t end) const;

  std::u16string entry_;
  bool pnrStyle_;
  bool continuationStyle_;           // the text itself tells where pages meet: nothing is dropped as repeated
  bool firstRowRemembered_ = false;  // a continuation mark has been found: the first row is the display's title
  bool isFirstPage_ = true;
  std::u16string page_;
  std::u16string previousPage_;
  PageJoiner text_;
};

}  // namespace wendrill
