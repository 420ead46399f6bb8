// The class factory (IClassFactory) of every class in kServer.
#pragma once

#include "com/server/module.h"

namespace wendrill::com {

// Implements DllGetClassObject for the classes of kServer. Returns CLASS_E_CLASSNOTAVAILABLE for any other class.
HRESULT ClassObjectOf(const CLSID& id, const IID& wanted, void** object);

}  // namespace wendrill::com
