#include "session/page_readers.h"

#include <utility>

#include "common/error_numbers.h"
#include "common/failures.h"
#include "common/numeric.h"
#include "session/page_collector.h"
#include "session/page_joiner.h"
#include "session/page_rules.h"
#include "session/shared_session.h"

namespace wendrill {
namespace {

// Calls `take` with the first page. As long as `take` returns true, fetches the next page with the entry MD and calls
// `take` with that page. Raises 6 (overflow) for a response of more than 32,767 pages, because the pages are counted in
// 16 bits. Errors of `take` and of the toolkit propagate unchanged.
template <typename Take>
void ForEachPage(ModuleState& state, std::u16string page, Take take) {
  for (std::int16_t pages = 1; take(std::move(page)); pages = Add16(pages, 1)) {
    SendEntry(state, kNextPageEntry);
    page = ResponseBuffer(state);
  }
}

}  // namespace

std::u16string CollectPages(ModuleState& state, TextView entry, std::int16_t responseType, std::u16string firstPage,
                            std::vector<std::u16string>* pages) {
  return WithNumber(kPageReaderFailed, [&] {
    PageCollector collector(entry, responseType);
    ForEachPage(state, std::move(firstPage), [&](std::u16string page) {
      const bool hasFurtherPage = collector.Take(std::move(page));
      if (pages != nullptr) {
        pages->push_back(collector.Page());
      }
      return hasFurtherPage;
    });
    return collector.TakeText();
  });
}

std::u16string ReadTicketingPages(ModuleState& state, TextView entry, std::u16string firstPage) {
  return WithNumber(kPageReaderFailed, [&] {
    PageJoiner text;
    ForEachPage(state, std::move(firstPage), [&](const std::u16string& page) {
      const TextView shown = WithoutIdleFirstRow(page, entry);
      text.Add(shown);
      return TicketingGoesOn(shown);
    });
    return text.Take();
  });
}

std::u16string ReadDisplay(ModuleState& state, std::int32_t count, std::u16string firstPage) {
  PageJoiner text;
  std::int32_t read = 0;
  std::u16string last;
  ForEachPage(state, std::move(firstPage), [&](std::u16string page) {
    if (read > 0 && page == last) {
      return false;
    }
    text.Add(page);
    last = std::move(page);
    return ++read != count && !EndsDisplay(last);
  });
  return text.Take();
}

}  // namespace wendrill
