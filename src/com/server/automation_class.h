// The base of all automation classes of this project's DLLs: reference counting, QueryInterface, late binding from
// generated tables, error information (ISupportErrorInfo), class information (IProvideClassInfo).
//
//   class CQueueObject final : public AutomationClass<CQueueObject, &CLSID_CQueue, _CQueue> { ... };
//
// The first interface in the template argument list, here _CQueue, is the default interface of the class.
#pragma once

#include <ocidl.h>
#include <ole2.h>
#include <windows.h>

#include <cstdint>
#include <cstring>
#include <new>

#include "com/server/boundary.h"
#include "com/server/counted_object.h"
#include "com/server/dispatch_table.h"
#include "com/server/module.h"

namespace wendrill::com {

// The dispatch table of an interface, built on first use from the rows that are generated for the interface.
template <typename Interface>
const DispatchTable& TableOf() {
  static const DispatchTable table(kMembersOf<Interface>);
  return table;
}

// Implements IDispatch for one dual interface. An object with several dual interfaces has one LateBound base for each
// of them.
template <typename Interface>
class LateBound : public Interface {
 public:
  using Implemented = Interface;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) final {
    if (count == nullptr) {
      return E_POINTER;
    }
    *count = 1;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** information) final {
    if (information == nullptr) {
      return E_POINTER;
    }
    *information = nullptr;
    return index != 0 ? DISP_E_BADINDEX : TypeInformationOf(__uuidof(Interface), information);
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID, DISPID* ids) final {
    if (!IsNull(reserved)) {
      return DISP_E_UNKNOWNINTERFACE;
    }
    return Guarded([&] { return TableOf<Interface>().IdsOfNames(names, count, ids); });
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                                   EXCEPINFO* exception, UINT* argument) final {
    if (!IsNull(reserved)) {
      return DISP_E_UNKNOWNINTERFACE;
    }
    return Guarded([&] {
      // A call may pump messages, and the handler of a message may release this object: `keepAlive` keeps the object
      // alive until the call returns.
      const Reference<Interface> keepAlive(this);
      return TableOf<Interface>().Invoke(static_cast<Interface*>(this), id, flags, arguments, result, exception,
                                         argument);
    });
  }

 private:
  // Whether `id` is IID_NULL. Compares inline, because IsEqualIID would cost a function call.
  static bool IsNull(REFIID id) {
    std::uint32_t words[4];
    static_assert(sizeof(words) == sizeof(id));
    std::memcpy(words, &id, sizeof(words));
    return (words[0] | words[1] | words[2] | words[3]) == 0;
  }
};

// The base class of Slots and EmptySlots. A vtable method ("slot") of Interface reaches the object of class Self
// through Object().
template <typename Self, typename Interface>
class LateBoundSlots : public LateBound<Interface> {
 protected:
  Self& Object() { return static_cast<Self&>(*this); }
};

// The base class through which the automation class Self implements the slots (vtable methods) of an interface. The
// primary template implements no slot, so that Self must implement all of them. For each dual interface, generated code
// specialises the template with slots that forward to the core object of Self; then Self implements only the members
// that have the IDL attribute restricted.
template <typename Self, typename Interface>
class Slots : public LateBoundSlots<Self, Interface> {};

// Implements the slots (vtable methods) of an interface, except members with the IDL attribute restricted, so that
// every slot does nothing and returns S_OK. A slot with a result stores an empty value, such as 0, null or False, in
// its out parameter; the slot returns E_POINTER when the out parameter is null. The primary template is only declared;
// generated code defines a specialisation for each dual interface.
template <typename Self, typename Interface>
class EmptySlots;

template <typename Result>
HRESULT GiveNothing(Result* result) {
  if (result == nullptr) {
    return E_POINTER;
  }
  *result = Result{};
  return S_OK;
}

template <typename Self, const CLSID* kClass, typename Default, typename... Others>
class AutomationClass : public CountedObject<CountOfOneApartment, ObjectLock, Slots<Self, Default>,
                                             Slots<Self, Others>..., ISupportErrorInfo, IProvideClassInfo> {
 public:
  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID asked) final {
    const bool ours = asked == __uuidof(Default) || (... || (asked == __uuidof(Others)));
    return ours ? S_OK : S_FALSE;
  }

  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** information) override {
    return information == nullptr ? E_POINTER : TypeInformationOf(*kClass, information);
  }

  // Runs the work of a method inside the exception boundary (Guarded). The work may pump messages, and the handler of a
  // message may release the object: the object stays alive until the work is done.
  template <typename Work>
  HRESULT Run(Work&& work) {
    const Reference<Self> keepAlive(static_cast<Self*>(this));
    return Guarded(std::forward<Work>(work));
  }
};

// Implements ServerClass::create for the class Self: creates an object and stores its interface `wanted`, AddRef'ed for
// the caller, in `object`.
template <typename Self>
HRESULT CreateObjectOf(const IID& wanted, void** object) {
  return Guarded([&] {
    // This lock keeps the shared state of the DLL alive during construction. When the construction fails and no other
    // object is live, this lock is the last ObjectLock: its destructor releases the shared state before the failure is
    // reported.
    const ObjectLock whileItIsCreated;
    auto* created = new Self();
    const HRESULT status = created->QueryInterface(wanted, object);
    created->Release();
    return status;
  });
}

}  // namespace wendrill::com
