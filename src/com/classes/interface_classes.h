// The creatable classes IGet and IGetPNR, for callers that bind to the interfaces of these names. In these classes,
// every member does nothing and returns an empty result. The class CPNR implements the members of both interfaces.
#pragma once

#include "com/server/automation_class.h"
#include "wendrill23_slots.h"

namespace wendrill::com {

class IGetObject;
class IGetPNRObject;

template <>
class Slots<IGetObject, _IGet> : public EmptySlots<IGetObject, _IGet> {};
template <>
class Slots<IGetPNRObject, _IGetPNR> : public EmptySlots<IGetPNRObject, _IGetPNR> {};

class IGetObject final : public AutomationClass<IGetObject, &CLSID_IGet, _IGet> {};
class IGetPNRObject final : public AutomationClass<IGetPNRObject, &CLSID_IGetPNR, _IGetPNR> {};

}  // namespace wendrill::com
