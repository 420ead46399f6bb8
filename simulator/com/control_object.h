// QuilletSimulator.Control: the class with which scripts, tests and the script host control the simulator.
#pragma once

#include "com/run_observer.h"
#include "com/server/automation_class.h"
#include "platform_dispatch.h"

namespace wendrill::simulator {

class ControlObject final : public com::AutomationClass<ControlObject, &CLSID_Control, _Control> {
 public:
  ControlObject() : observable_(*this) {}
  HRESULT STDMETHODCALLTYPE Load(BSTR path) override;
  HRESULT STDMETHODCALLTYPE LoadText(BSTR toml) override;
  HRESULT STDMETHODCALLTYPE get_Journal(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE ClearJournal() override;
  HRESULT STDMETHODCALLTYPE FailNext(BSTR operation, LONG status, LONG nth) override;
  HRESULT STDMETHODCALLTYPE get_LiveObjects(LONG* result) override;
  HRESULT STDMETHODCALLTYPE get_Calls(LONG* result) override;
  HRESULT STDMETHODCALLTYPE get_Report(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE get_Unanswered(VARIANT* result) override;
  HRESULT STDMETHODCALLTYPE get_Unused(VARIANT* result) override;
  HRESULT STDMETHODCALLTYPE get_Warnings(VARIANT* result) override;
  HRESULT STDMETHODCALLTYPE get_Findings(LONG* result) override;
  HRESULT STDMETHODCALLTYPE get_Strict(VARIANT_BOOL* result) override;
  HRESULT STDMETHODCALLTYPE Warn(BSTR warning) override;

 protected:
  void* FindFurther(REFIID wanted) override;

 private:
  // Implements the interface IObservable of the control object. An Observable has no reference count of its own: AddRef
  // and Release change the control object's reference count.
  class Observable final : public IObservable {
   public:
    explicit Observable(ControlObject& whole) : whole_(whole) {}
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return whole_.AddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return whole_.Release(); }
    void Observe(IRunObserver* observer) override;
    HRESULT StartTrace(const trace::Settings& settings, std::wstring_view script) override;
    void TraceError(const trace::Failed& error) override;
    void EndTrace(int status) override;
    void CutTrace(int status) override;
    bool TraceIsWhole() override;

   private:
    ControlObject& whole_;
  };

  Observable observable_;
};

}  // namespace wendrill::simulator
