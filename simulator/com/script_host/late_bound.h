// Late-bound calls of automation objects, as a script makes them.
#pragma once

#include <oaidl.h>
#include <windows.h>

#include <string>
#include <vector>

#include "script_object.h"

namespace wendrill::script_host {

// A VARIANT that clears itself.
class OwnedVariant : public VARIANT {
 public:
  OwnedVariant() { VariantInit(this); }
  ~OwnedVariant() { VariantClear(this); }
  OwnedVariant(const OwnedVariant&) = delete;
  OwnedVariant& operator=(const OwnedVariant&) = delete;
};

// Calls a member with at most one string; an empty `result` value when it returns nothing. Throws Failure with the
// object's own error.
void CallByName(IDispatch& object, const wchar_t* member, const std::wstring* argument, VARIANT* result);

std::wstring TextOf(IDispatch& object, const wchar_t* property);
long NumberOf(IDispatch& object, const wchar_t* property);
bool TruthOf(IDispatch& object, const wchar_t* property);
std::vector<std::wstring> TextsOf(IDispatch& object, const wchar_t* property);  // of an array

// Creates an object of a programmatic name. Throws Failure: 429 for a name that no class has, else with the class's own
// refusal.
IDispatch* CreateByName(const std::wstring& className);

// Whether a class has this name.
bool IsClass(const std::wstring& className);

}  // namespace wendrill::script_host
