// Reads the terminal's PNR objects for a recording. Properties that cannot be read are left out.
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

// Reads the display and the header of a PNR. `status`, the result of RetrieveCurrent or 0 for a retrieval by an entry,
// is stored in the returned structure.
recording::ReadPnr ReadPnrObject(IDispatch* pnr, std::int32_t status);

// The elements of a collection. Returns nullopt when the PNR returns no collection, when the collection cannot be
// enumerated to its end, and when the collection contains anything that is not an object.
//
// An air segment itself does not show whether it is flown; only the collection of flown segments does. `flown`
// therefore carries the element numbers of the flown segments from one call to the next:
// - A call for the collection of flown segments adds the element numbers of its segments to `flown`.
// - In a call for AllAirSegments, a segment that is neither timed nor open counts as flown if `flown` contains its
//   element number.
std::optional<std::vector<recording::ReadObject>> ReadElements(IDispatch* pnr, const simulator::Collection& collection,
                                                               std::set<std::u16string>& flown);

}  // namespace wendrill::recorder
