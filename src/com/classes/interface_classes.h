// IGet and IGetPNR as creatable classes, so that callers can bind to the interfaces. They are empty: every member does
// nothing and returns Nothing. CPNR implements the two interfaces.
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
