// Reads PNR objects of the terminal as a recording takes them. What cannot be read is left out.
#pragma once

#include <ole2.h>
#include <windows.h>

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "derive/object_model.h"
#include "recording/recording.h"

namespace wendrill::recorder {

// Display and header.
recording::ReadPnr ReadPnrObject(IDispatch* pnr, std::int32_t status);

// The elements of a collection; nullopt when it cannot be enumerated to its end. Which air segments are flown is known
// from their collection alone: `flown` holds their numbers, and those of a collection of flown segments are added.
std::optional<std::vector<recording::ReadObject>> ReadElements(IDispatch* pnr, const simulator::Collection& collection,
                                                               std::set<std::u16string>& flown);

}  // namespace wendrill::recorder
