// The readers of whole responses. Each reader takes the first page from its caller and fetches every further page with
// the entry MD.
//
// A reader does not check whether the caller stopped the loop. Stopping the loop drops the shared session, so that
// sending the next MD raises 91 (object not set). A response of more than 32,767 pages raises 6 (overflow).
// CollectPages and ReadTicketingPages raise 2550 instead of 91 and 6; ReadDisplay lets 91 and 6 propagate.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "common/module_state.h"
#include "common/text.h"

namespace wendrill {

// Returns the pages of the response to `entry`, joined as page_collector.cpp explains. When `pages` is not null, each
// page is also appended to `*pages`, without an idle first row and with its mark. Raises 2550 on any failure except a
// lack of memory, which raises 7 (out of memory).
std::u16string CollectPages(ModuleState& state, TextView entry, std::int16_t responseType, std::u16string firstPage,
                            std::vector<std::u16string>* pages = nullptr);

// Returns the pages of the ticketing display that the host returned for `entry`, joined. Raises 2550 on any failure
// except a lack of memory, which raises 7 (out of memory).
std::u16string ReadTicketingPages(ModuleState& state, TextView entry, std::u16string firstPage);

// Returns the pages of a display up to its last page, joined: at most `count` pages, or all pages when `count` is 0.
// EndsDisplay decides which page is the last. A page that equals the page before it also ends the display; that
// repeated page is not added. Errors propagate unchanged.
std::u16string ReadDisplay(ModuleState& state, std::int32_t count, std::u16string firstPage);

}  // namespace wendrill
