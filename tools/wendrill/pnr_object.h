// Wraps a derived PNR in objects with the interface of the toolkit's PNR object, so that the library's own accessors
// can read it.
#pragma once

#include <memory>

#include "common/text.h"
#include "common/value.h"
#include "derive/derivation.h"
#include "toolkit/automation_object.h"

namespace wendrill::tool {

// The object of one element. REQUIRES: the derived PNR that holds `element` outlives the object.
ObjectRef ElementObject(const simulator::DerivedElement& element);

// The PNR object with its display, header and collections. REQUIRES: `display` and `pnr` outlive the object.
ObjectRef PnrObject(TextView display, const simulator::DerivedPnr& pnr);

}  // namespace wendrill::tool
