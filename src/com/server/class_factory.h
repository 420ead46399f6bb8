// The class factory (IClassFactory) of every class in kServer.
#pragma once

#include "com/server/module.h"

namespace wendrill::com {

// Implements DllGetClassObject: stores the interface `wanted` of a new class factory, AddRef'ed for the caller, in
// `object`. Returns CLASS_E_CLASSNOTAVAILABLE when `id` is not a class in kServer.
HRESULT ClassObjectOf(const CLSID& id, const IID& wanted, void** object);

}  // namespace wendrill::com
