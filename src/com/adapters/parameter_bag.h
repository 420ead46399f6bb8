// The caller's parameter bag.
#pragma once

#include "com/adapters/foreign_object.h"
#include "common/param_bag.h"

namespace wendrill::com {

// The bag behind an object that a caller passed, by its bag interface where it has one. Any other object is taken for
// one with a keyed default member, such as a scripting dictionary: values are put into and read from that member,
// arrays in the form that scripts can index. An empty reference for Nothing.
ParamBagRef AdaptParamBag(IDispatch* object, KnownNames& names);

// The object behind a bag that AdaptParamBag made; null for an empty reference. Not counted.
IDispatch* ObjectBehind(const ParamBagRef& bag);

}  // namespace wendrill::com
