// Calls automation objects late-bound, as a script does.
#pragma once

#include <oaidl.h>
#include <windows.h>

#include <string>
#include <vector>

#include "script_object.h"

namespace wendrill::script_host {

// A VARIANT whose destructor clears it.
class OwnedVariant : public VARIANT {
 public:
  OwnedVariant() { VariantInit(this); }
  ~OwnedVariant() { VariantClear(this); }
  OwnedVariant(const OwnedVariant&) = delete;
  OwnedVariant& operator=(const OwnedVariant&) = delete;
};

// Calls a method or reads a property. The call has one string argument, or none when `argument` is null. `result` may
// be null; it stays as it was when the member returns nothing. Throws Failure: with the object's error when the call
// fails, with the status of GetIDsOfNames when the object does not have the member.
void CallByName(IDispatch& object, const wchar_t* member, const std::wstring* argument, VARIANT* result);

// Each returns the value of a property, converted to the result type. Each throws Failure as CallByName does, and when
// the value cannot be converted.
std::wstring TextOf(IDispatch& object, const wchar_t* property);
long NumberOf(IDispatch& object, const wchar_t* property);
bool TruthOf(IDispatch& object, const wchar_t* property);
// The strings in a property that is an array of VARIANT with the lower bound 0; empty for a value of another type.
std::vector<std::wstring> TextsOf(IDispatch& object, const wchar_t* property);

// Creates an object by its programmatic name and returns it AddRef'ed. Throws Failure: 429 when no class has the name,
// otherwise the error with which the class refused the creation.
IDispatch* CreateByName(const std::wstring& className);

// Whether a class has this programmatic name.
bool IsClass(const std::wstring& className);

}  // namespace wendrill::script_host
