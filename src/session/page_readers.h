// The readers of whole responses: each takes the first page from the caller and fetches the further pages with MD.
//
// The loop over pages does not ask whether the collection is active: stopping the loop drops the session, so that the
// next MD fails. A collection of more than 32,767 pages fails with overflow (6).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "common/module_state.h"
#include "common/text.h"

namespace wendrill {

// The pages of the response to `entry`, joined; `pages`, when not null, receives the single pages. Raises 2550 on any
// failure.
std::u16string CollectPages(ModuleState& state, TextView entry, std::int16_t responseType, std::u16string firstPage,
                            std::vector<std::u16string>* pages = nullptr);

// The pages of the ticketing display that `entry` began, joined. Raises 2550 on any failure.
std::u16string ReadTicketingPages(ModuleState& state, TextView entry, std::u16string firstPage);

// The pages of a display up to its end, joined: at most `count` pages, or all pages when `count` is 0. A page that the
// host repeats unchanged is not added, and ends the display.
std::u16string ReadDisplay(ModuleState& state, std::int32_t count, std::u16string firstPage);

}  // namespace wendrill
