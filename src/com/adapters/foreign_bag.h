// The parameter bag (ParamBag) over an object that the caller passed.
#pragma once

#include "com/adapters/foreign_object.h"
#include "common/param_bag.h"

namespace wendrill::com {

// Implements ParamBag over an object that a caller passed; returns null when `object` is null. An object that
// implements _ParamBag is called through that interface. Any other object is treated as one with a keyed default
// member, such as a scripting dictionary: values are read from and assigned to that member. Arrays are then assigned as
// arrays of VARIANTs, which scripts can index.
ParamBagRef AdaptParamBag(IDispatch* object, KnownNames& names);

// The object of a bag that AdaptParamBag returned, not AddRef'ed; null when `bag` is null.
IDispatch* ObjectBehind(const ParamBagRef& bag);

}  // namespace wendrill::com
