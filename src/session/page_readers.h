// The readers of whole responses: each begins with the page at hand and fetches the further ones with MD.
//
// The loop over pages does not look at LoopActive: StopLoop ends a reading by dropping the session, so that the next MD
// fails. A reading is given up with overflow (6) behind its 32,767th page.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "common/module_state.h"
#include "common/text.h"

namespace wendrill {

// The whole response, joined. `entry` began it; `pages`, where given, receives the pages one by one. 2550.
std::u16string CollectPages(ModuleState& module, TextView entry, std::int16_t responseType, std::u16string firstPage,
                            std::vector<std::u16string>* pages = nullptr);

// The pages of a ticketing display, joined. `entry` began the display. 2550.
std::u16string ReadTicketingPages(ModuleState& module, TextView entry, std::u16string firstPage);

// The pages of a display up to its end, joined; at most `count` of them, all for 0. A page that the host shows again
// unchanged is no new one: there is nothing behind it.
std::u16string ReadDisplay(ModuleState& module, std::int32_t count, std::u16string firstPage);

}  // namespace wendrill
