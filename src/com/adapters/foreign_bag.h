// The caller's parameter bag.
#pragma once

#include "com/adapters/foreign_object.h"
#include "common/param_bag.h"

namespace wendrill::com {

// The bag port for an object that a caller passed; an empty reference for null. An object that supports _ParamBag is
// called through that interface. Any other object is treated as one with a keyed default member, such as a scripting
// dictionary: values are read from and assigned to that member, and arrays are assigned as arrays of VARIANT, which
// scripts can index.
ParamBagRef AdaptParamBag(IDispatch* object, KnownNames& names);

// The object of a bag that AdaptParamBag returned, not AddRef'ed; null for an empty reference.
IDispatch* ObjectBehind(const ParamBagRef& bag);

}  // namespace wendrill::com
