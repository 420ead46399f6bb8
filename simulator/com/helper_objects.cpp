#include "com/helper_objects.h"

#include "com/results.h"
#include "com/simulation.h"

namespace wendrill::simulator {
namespace {

// The key of a bag as a string. Scripts may also pass numbers as keys.
std::u16string KeyIn(const VARIANT& key) {
  return ToText(ValueIn(key), TheSimulation().world.Texts());
}

HRESULT GiveValue(const Value& value, VARIANT* result, com::ArrayForm form) {
  ValueOut(value, result, form);
  return S_OK;
}

}  // namespace

AlarmManagerObject::AlarmManagerObject() : core_(TheSimulation().world.MakeAlarmManager()) {}

HRESULT AlarmManagerObject::LockAlarm(VARIANT_BOOL* lock, LONG* code) {
  if (lock == nullptr) {
    return E_POINTER;
  }
  return GiveResult(code, [&] { return ToInt32(core_->LockAlarm(*lock != VARIANT_FALSE)); });
}

TextHelperObject::TextHelperObject() : core_(TheSimulation().world.MakeTextHelper()) {}

HRESULT TextHelperObject::get_TerminalReady(LONG* result) {
  return GiveResult(result, [&] { return core_->TerminalReady(); });
}

HRESULT TextHelperObject::get_HostReady(LONG* result) {
  return GiveResult(result, [&] { return core_->HostReady(); });
}

HRESULT TextHelperObject::get_TerminalVersion(BSTR* result) {
  return GiveResult(result, [&] { return core_->TerminalVersion(); });
}

HRESULT TextHelperObject::HostDateText(VARIANT date, BSTR* result) {
  return GiveResult(result, [&] { return core_->HostDateText(ValueIn(date)); });
}

HRESULT ParamBagEntryObject::get_Value(VARIANT* result) {
  if (result == nullptr) {
    return E_POINTER;
  }
  // Early-bound programs read the value of a key through this property. They expect an array of strings to be an array
  // of BSTR.
  return com::Guarded([&] { return GiveValue(value_, result, com::ArrayForm::Strings); });
}

ParamBagObject::ParamBagObject() : core_(TheSimulation().world.MakeParamBag()) {}

HRESULT ParamBagObject::Set(BSTR key, VARIANT value) {
  return com::Guarded([&] { core_->Set(com::TextOf(key), ValueIn(value)); });
}

HRESULT ParamBagObject::Get(BSTR key, _ParamBagEntry** entry) {
  if (entry == nullptr) {
    return E_POINTER;
  }
  *entry = nullptr;
  return com::Guarded([&] {
    Value value = core_->Get(com::TextOf(key));
    if (!value.IsEmpty()) {
      *entry = new ParamBagEntryObject(std::move(value));
    }
  });
}

HRESULT ParamBagObject::get_Item(VARIANT key, VARIANT* result) {
  if (result == nullptr) {
    return E_POINTER;
  }
  return com::Guarded([&] { return GiveValue(core_->Item(KeyIn(key)), result, com::ArrayForm::Variants); });
}

HRESULT ParamBagObject::put_Item(VARIANT key, VARIANT value) {
  return com::Guarded([&] { core_->PutItem(KeyIn(key), ValueIn(value)); });
}

HRESULT ParamBagObject::Exists(VARIANT key, VARIANT_BOOL* result) {
  return GiveResult(result, [&] { return core_->Exists(KeyIn(key)); });
}

HRESULT ParamBagObject::Keys(VARIANT* result) {
  if (result == nullptr) {
    return E_POINTER;
  }
  return com::Guarded([&] { return GiveValue(core_->Keys(), result, com::ArrayForm::Variants); });
}

HRESULT ParamBagObject::get_Count(LONG* result) {
  return GiveResult(result, [&] { return core_->Count(); });
}

HRESULT ParamBagObject::RemoveAll() {
  return com::Guarded([&] { core_->RemoveAll(); });
}

}  // namespace wendrill::simulator
