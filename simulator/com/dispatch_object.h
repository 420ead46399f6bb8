// The automation object for a simulated object of the PNR object model. DispatchObject is only late bound: it
// implements IDispatch without a dual interface and without type information.
#pragma once

#include <memory>

#include "com/server/automation_types.h"
#include "com/server/counted_object.h"
#include "core/simulated_pnr.h"
#include "platform.h"

namespace wendrill::simulator {

// The private interface by which the simulator recognises its own objects among the arguments of a call. The interface
// has no marshalling: a proxy of another apartment or process does not implement it.
MIDL_INTERFACE("6D1F3E52-9B0C-4E0A-8A5B-6E2D70C1F4A7")
ISimulated : public IUnknown {
 public:
  // The simulated object behind this automation object; never null.
  virtual ObjectRef Simulated() const = 0;
};

}  // namespace wendrill::simulator

#ifdef __CRT_UUID_DECL
__CRT_UUID_DECL(wendrill::simulator::ISimulated, 0x6D1F3E52, 0x9B0C, 0x4E0A, 0x8A, 0x5B, 0x6E, 0x2D, 0x70, 0xC1, 0xF4,
                0xA7)
#endif

namespace wendrill::simulator {

class DispatchObject final
    : public com::CountedObject<com::CountOfAnyThread, com::ObjectLock, IDispatch, ISupportErrorInfo, ISimulated> {
 public:
  explicit DispatchObject(std::shared_ptr<SimulatedObject> object);
  ~DispatchObject() override;

  // Returns the automation object of a simulated object, AddRef'ed for the caller. Creates the automation object when
  // the simulated object has none.
  static IDispatch* For(std::shared_ptr<SimulatedObject> object);

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** information) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments,
                                   VARIANT* result, EXCEPINFO* exception, UINT* argument) override;
  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID asked) override;

  ObjectRef Simulated() const override { return object_; }

 protected:
  void* FindFurther(REFIID wanted) override;

 private:
  // Carries out one call of Invoke. Raises an Error when the call fails. `result` may be null; the previous content of
  // `result` may be garbage and is overwritten without being cleared.
  void Answer(DISPID id, WORD flags, const DISPPARAMS& arguments, VARIANT* result);

  std::shared_ptr<SimulatedObject> object_;
};

}  // namespace wendrill::simulator
