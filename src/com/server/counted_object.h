// Reference counting and QueryInterface for the COM objects of this project:
//
//   class Enumerator final : public CountedObject<CountOfAnyThread, ObjectLock, IEnumVARIANT, ISupportErrorInfo> { ...
//   };
//
// An object is created with one reference, which belongs to its creator.
#pragma once

#include <ole2.h>
#include <windows.h>

#include <atomic>
#include <type_traits>

#include "com/server/module.h"

namespace wendrill::com {

// An atomic reference count, for objects that other components may AddRef and Release on any thread.
class CountOfAnyThread {
 public:
  ULONG Up() { return references_.fetch_add(1) + 1; }
  ULONG Down() { return references_.fetch_sub(1) - 1; }

 private:
  std::atomic<ULONG> references_{1};
};

// A reference count that is not atomic, for objects that only one thread uses. The objects of AutomationClass have this
// count: no class of this project has a threading model, so all these objects live in the main single-threaded
// apartment of the process, and other apartments hold proxies. A late-bound call changes the count four times, and
// atomic operations would take longer than the rest of the call.
class CountOfOneApartment {
 public:
  ULONG Up() { return ++references_; }
  ULONG Down() { return --references_; }

 private:
  ULONG references_ = 1;
};

// The interface that a base class of an object implements: Base::Implemented if Base declares this type, otherwise
// Base.
template <typename Base>
struct ImplementedInterface {
  using Type = Base;
};
template <typename Base>
requires(!std::is_void_v<typename Base::Implemented>) struct ImplementedInterface<Base> {
  using Type = typename Base::Implemented;
};

// Implements AddRef, Release and QueryInterface for the interfaces of the bases First and Others. First provides the
// identity of the object (IUnknown), and also IDispatch if First is derived from IDispatch. Count is the class of the
// reference count. Living is the type of the lock that the object holds on the DLL, such as ObjectLock. The lock is
// destroyed after the derived class, so that the DLL is still locked while the destructor of the derived class releases
// other objects.
template <typename Count, typename Living, typename First, typename... Others>
class CountedObject : public First, public Others... {
 public:
  CountedObject(const CountedObject&) = delete;
  CountedObject& operator=(const CountedObject&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) final {
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
  ULONG STDMETHODCALLTYPE AddRef() final { return count_.Up(); }
  ULONG STDMETHODCALLTYPE Release() final {
    const ULONG left = count_.Down();
    if (left == 0) {
      // The reference count is 1 during destruction. An object that the destructor releases may call back, and its
      // calls of AddRef and Release must not start a second destruction.
      count_.Up();
      delete this;
    }
    return left;
  }

 protected:
  CountedObject() = default;
  virtual ~CountedObject() = default;

  // Called with an IID that is not the IID of any base. Returns a pointer to the interface with this IID, without
  // AddRef; null when the object does not implement that interface.
  virtual void* FindFurther(REFIID) { return nullptr; }

 private:
  template <typename Base>
  void* As() {
    return static_cast<typename ImplementedInterface<Base>::Type*>(static_cast<Base*>(this));
  }

  template <typename Base>
  static bool Is(REFIID wanted) {
    return wanted == __uuidof(typename ImplementedInterface<Base>::Type);
  }

  // Find is not inlined, to keep the code small: the compiler generates a thunk of QueryInterface for each base, and
  // would copy Find into every thunk.
  [[gnu::noinline]] void* Find(REFIID wanted) {
    const bool isDispatch = std::is_base_of_v<IDispatch, First> && wanted == IID_IDispatch;
    if (wanted == IID_IUnknown || isDispatch || Is<First>(wanted)) {
      return As<First>();
    }
    void* found = nullptr;
    (..., (found = Is<Others>(wanted) ? As<Others>() : found));
    return found != nullptr ? found : FindFurther(wanted);
  }

  Living living_;
  Count count_;
};

}  // namespace wendrill::com
