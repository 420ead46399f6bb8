// The port ParamBag, implemented over a parameter bag of another component.
#pragma once

#include "com/adapters/foreign_object.h"
#include "common/param_bag.h"

namespace wendrill::com {

// Implements ParamBag over an object that a caller passed or that the library created; returns null when `object` is
// null. An object that implements _ParamBag is called through that interface. Any other object is treated as a
// dictionary: Get and Set read and assign the default member of the object, with the key as the argument. For a
// dictionary, Set converts an array of strings to an array of VARIANTs, because scripts can index only arrays of
// VARIANTs.
ParamBagRef AdaptParamBag(IDispatch* object, KnownNames& names);

// The object of a bag that AdaptParamBag returned, not AddRef'ed; null when `bag` is null.
IDispatch* ObjectBehind(const ParamBagRef& bag);

}  // namespace wendrill::com
