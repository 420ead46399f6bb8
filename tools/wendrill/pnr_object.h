// A derived PNR as the toolkit's PNR object: what the library's own accessors read.
#pragma once

#include <memory>

#include "common/text.h"
#include "common/value.h"
#include "derive/derivation.h"
#include "toolkit/automation_object.h"

namespace wendrill::tool {

// One element. The derived PNR outlives it.
ObjectRef ElementObject(const simulator::DerivedElement& element);

// The whole PNR: display, header and collections. Display and derived PNR outlive it.
ObjectRef PnrObject(TextView display, const simulator::DerivedPnr& pnr);

}  // namespace wendrill::tool
