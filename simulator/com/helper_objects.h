// The automation classes of the simulated alarm, text helper and parameter bag.
#pragma once

#include <memory>

#include "com/server/automation_class.h"
#include "core/simulated_bag.h"
#include "core/simulated_helpers.h"
#include "platform_dispatch.h"

namespace wendrill::simulator {

class AlarmManagerObject final : public com::AutomationClass<AlarmManagerObject, &CLSID_AlarmManager, _AlarmManager> {
 public:
  AlarmManagerObject();
  HRESULT STDMETHODCALLTYPE LockAlarm(VARIANT_BOOL* lock, LONG* code) override;

 private:
  std::shared_ptr<SimulatedAlarmManager> core_;
};

class TextHelperObject final : public com::AutomationClass<TextHelperObject, &CLSID_TextHelper, _TextHelper> {
 public:
  TextHelperObject();
  HRESULT STDMETHODCALLTYPE get_TerminalReady(LONG* result) override;
  HRESULT STDMETHODCALLTYPE get_HostReady(LONG* result) override;
  HRESULT STDMETHODCALLTYPE get_TerminalVersion(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE HostDateText(VARIANT date, BSTR* result) override;

 private:
  std::shared_ptr<SimulatedTextHelper> core_;
};

// The object that ParamBagObject::Get returns for a key. The object holds the value of the key at that call.
class ParamBagEntryObject final
    : public com::AutomationClass<ParamBagEntryObject, &IID__ParamBagEntry, _ParamBagEntry> {
 public:
  explicit ParamBagEntryObject(Value value) : value_(std::move(value)) {}
  HRESULT STDMETHODCALLTYPE get_Value(VARIANT* result) override;

 private:
  Value value_;
};

class ParamBagObject final : public com::AutomationClass<ParamBagObject, &CLSID_ParamBag, _ParamBag> {
 public:
  ParamBagObject();
  HRESULT STDMETHODCALLTYPE Set(BSTR key, VARIANT value) override;
  HRESULT STDMETHODCALLTYPE Get(BSTR key, _ParamBagEntry** entry) override;
  HRESULT STDMETHODCALLTYPE get_Item(VARIANT key, VARIANT* result) override;
  HRESULT STDMETHODCALLTYPE put_Item(VARIANT key, VARIANT value) override;
  HRESULT STDMETHODCALLTYPE Exists(VARIANT key, VARIANT_BOOL* result) override;
  HRESULT STDMETHODCALLTYPE Keys(VARIANT* result) override;
  HRESULT STDMETHODCALLTYPE get_Count(LONG* result) override;
  HRESULT STDMETHODCALLTYPE RemoveAll() override;

 private:
  std::shared_ptr<SimulatedBag> core_;
};

}  // namespace wendrill::simulator
