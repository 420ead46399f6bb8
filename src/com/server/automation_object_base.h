// What every automation class here shares: counting, identity, late binding from its tables, rich errors, class
// information.
//
//   class CQueueObject final : public AutomationClass<CQueueObject, &CLSID_CQueue, _CQueue> { ... };
//
// The first interface is the default one.
#pragma once

#include <ocidl.h>
#include <ole2.h>
#include <windows.h>

#include <cstdint>
#include <cstring>
#include <new>

#include "com/server/boundary.h"
#include "com/server/dispatch_table.h"
#include "com/server/module.h"

namespace wendrill::com {

// The members of an interface, from the rows that are generated for it.
template <typename Interface>
const DispatchTable& TableOf() {
  static const DispatchTable table(kMembersOf<Interface>);
  return table;
}

// Late binding of one interface; with several dual interfaces on an object each needs its own.
template <typename Interface>
class LateBound : public Interface {
 public:
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
  // Guarded as a whole: besides the method, the first use of the table and the arguments' conversion take memory. Not
  // by Guarded, which the compiler does not inline here: that would add a quarter to the call of a property.
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                                   EXCEPINFO* exception, UINT* argument) final {
    if (!IsNull(reserved)) {
      return DISP_E_UNKNOWNINTERFACE;
    }
    try {
      // A call may pump messages, and a message may release this object: it lives until the call is over.
      const Reference<Interface> keepAlive(this);
      return TableOf<Interface>().Invoke(static_cast<Interface*>(this), id, flags, arguments, result, exception,
                                         argument);
    } catch (...) {
      return ReportCurrentException();
    }
  }

 private:
  // As IsEqualIID with IID_NULL, without a call.
  static bool IsNull(REFIID id) {
    std::uint32_t words[4];
    static_assert(sizeof(words) == sizeof(id));
    std::memcpy(words, &id, sizeof(words));
    return (words[0] | words[1] | words[2] | words[3]) == 0;
  }
};

// One interface of the class Self.
template <typename Self, typename Interface>
class LateBoundSlots : public LateBound<Interface> {
 protected:
  Self& Object() { return static_cast<Self&>(*this); }
};

// The slots of an interface that Self does not implement itself. Specialised by generated code where each forwards to the
// core of Self.
template <typename Self, typename Interface>
class Slots : public LateBoundSlots<Self, Interface> {};

// The slots of an interface whose members do nothing and return an empty result; specialised by generated code.
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
class AutomationClass : public Slots<Self, Default>,
                        public Slots<Self, Others>...,
                        public ISupportErrorInfo,
                        public IProvideClassInfo {
 public:
  AutomationClass(const AutomationClass&) = delete;
  AutomationClass& operator=(const AutomationClass&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override {
    if (object == nullptr) {
      return E_POINTER;
    }
    *object = Find(wanted);
    if (*object == nullptr) {
      return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() final { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() final {
    const ULONG left = --references_;
    if (left == 0) {
      // Counted anew while it goes: what it releases may call back and take and give up references to it.
      references_ = 1;
      delete static_cast<Self*>(this);
    }
    return left;
  }

  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID asked) final {
    const bool ours = asked == __uuidof(Default) || (... || (asked == __uuidof(Others)));
    return ours ? S_OK : S_FALSE;
  }

  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** information) override {
    return information == nullptr ? E_POINTER : TypeInformationOf(*kClass, information);
  }

  // Runs a method's work at the border; the object lives until the work is done, whatever the work pumps.
  template <typename Work>
  HRESULT Run(Work&& work) {
    const Reference<Default> keepAlive(static_cast<Default*>(this));
    return Guarded(std::forward<Work>(work));
  }

 protected:
  AutomationClass() = default;
  virtual ~AutomationClass() = default;

  // Interfaces beyond the automation ones; null for an unknown one.
  virtual void* FindFurther(REFIID) { return nullptr; }


 private:
  void* Find(REFIID wanted) {
    if (wanted == IID_IUnknown || wanted == IID_IDispatch || wanted == __uuidof(Default)) {
      return static_cast<Default*>(this);
    }
    void* found = nullptr;
    (..., (found = wanted == __uuidof(Others) ? static_cast<Others*>(this) : found));
    if (found == nullptr && wanted == IID_ISupportErrorInfo) {
      found = static_cast<ISupportErrorInfo*>(this);
    }
    if (found == nullptr && wanted == IID_IProvideClassInfo) {
      found = static_cast<IProvideClassInfo*>(this);
    }
    return found != nullptr ? found : FindFurther(wanted);
  }

  // Not atomic: no class has a threading model, so all objects live in the process's main single-threaded apartment and
  // are called, and counted, on its one thread; other apartments hold proxies. A late-bound call counts four times, and
  // atomic counting would cost more than all the rest of it.
  ULONG references_ = 1;
  ObjectLock lock_;
};

// Makes an object of a class for its factory.
template <typename Self>
HRESULT CreateObjectOf(const IID& wanted, void** object) {
  return Guarded([&] {
    // What a constructor asks of other servers is let go when the first object of all comes to nothing, and before the
    // failure is reported.
    const ObjectLock whileItIsCreated;
    auto* created = new Self();
    const HRESULT status = created->QueryInterface(wanted, object);
    created->Release();
    return status;
  });
}

}  // namespace wendrill::com
