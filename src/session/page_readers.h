// The readers of whole responses. Each reader takes the first page from its caller and fetches every further page with
// the entry MD.
//
// Two failures come from the reading itself:
//   - 91 (object not set): a message stopped the collection of pages while a page was being fetched. The stop drops the
//     shared session and the response, so that the reader cannot send the next MD or read its page.
//   - 6 (overflow): the response has more than 32,767 pages.
// CollectPages and ReadTicketingPages raise 2550 instead of 91 and 6; ReadDisplay lets 91 and 6 propagate.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "common/module_state.h"
#include "common/text.h"

namespace wendrill {

// Returns the pages of the response to `entry`, joined as page_collector.cpp explains. When `pages` is not null, each
// page is also appended to `*pages`: with its mark, but without an idle first row (see WithoutIdleFirstRow). Raises
// 2550 on any failure except a lack of memory, which raises 7 (out of memory).
std::u16string CollectPages(ModuleState& state, TextView entry, std::int16_t responseType, std::u16string firstPage,
                            std::vector<std::u16string>* pages = nullptr);

// Returns the pages of the ticketing display that the host returned for `entry`, joined, each without an idle first row
// (see WithoutIdleFirstRow). TicketingGoesOn decides whether a further page follows. Raises 2550 on any failure except
// a lack of memory, which raises 7 (out of memory).
std::u16string ReadTicketingPages(ModuleState& state, TextView entry, std::u16string firstPage);

// Returns the pages of a display up to its last page, joined: at most `count` pages, or all pages when `count` is 0.
// EndsDisplay decides which page is the last. A page that equals the page before it also ends the display; that
// repeated page is not added. Errors propagate unchanged.
std::u16string ReadDisplay(ModuleState& state, std::int32_t count, std::u16string firstPage);

}  // namespace wendrill
