// A sweep of short memory over one call: its first request for memory fails, in a new row of objects its second, and so
// on. The caller meets a status, never an exception; nothing is left over, and the same call then works.
//
// The objects are linked into the program (short_memory.h). A call makes nothing of its own: only what is tested may
// ask for memory.
#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>

#include "com/server/class_factory.h"
#include "desktop_fixture.h"
#include "short_memory.h"

namespace wendrill::com::testing {

// The factories of this program's own classes.
template <typename Interface>
HRESULT CreateInto(const CLSID& id, Reference<Interface>& object) {
  Reference<IClassFactory> factory;
  const HRESULT status = ClassObjectOf(id, IID_IClassFactory, factory.ReceiveVoid());
  return FAILED(status) ? status : factory->CreateInstance(nullptr, __uuidof(Interface), object.ReceiveVoid());
}

// Arguments come in their written order, and are reversed where they are. The status of an exception is its own.
HRESULT Late(IDispatch* object, DISPID id, std::span<VARIANT> arguments, VARIANT* result,
             WORD flags = DISPATCH_METHOD | DISPATCH_PROPERTYGET);
HRESULT Late(IDispatch* object, const wchar_t* name, std::span<VARIANT> arguments, VARIANT* result,
             WORD flags = DISPATCH_METHOD | DISPATCH_PROPERTYGET);

// A row of objects and the call of it.
struct SweptCall {
  std::shared_ptr<void> objects;
  std::function<HRESULT()> call;
  VARIANT* result;  // the call's; cleared before each
};

class MemorySweep : public Desktop {
 protected:
  static void SetUpTestSuite() { WatchMemory(); }

  virtual SweptCall Prepare() = 0;

  // Whether a call may fail with the status when memory is short.
  virtual bool MayFailWith(HRESULT status) const = 0;

  // What is in use when no object lives.
  virtual BlocksInUse AtRest();

  // The number of requests, each of which failed once alone and once with every later one.
  int Sweep();

 private:
  // What a call answered, and whether the request that fails was made.
  struct Outcome {
    HRESULT status = S_OK;
    std::wstring result;
    bool struck = false;
  };

  static Outcome Call(const SweptCall& swept, long nth, Shortage shortage);
  static Outcome CallUndisturbed(const SweptCall& swept) { return Call(swept, 0, Shortage::Once); }

  // Whether there was an nth request.
  bool Fail(long nth, Shortage shortage, const std::wstring& expected);
};

}  // namespace wendrill::com::testing
