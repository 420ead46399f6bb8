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

// Calls a method or reads a property. The call has one string argument, or no argument when `argument` is null.
// `result` may be null; a value in `*result` may be overwritten without being freed. Throws Failure: with the object's
// error when the call fails, with the status of GetIDsOfNames when the object does not have the member.
void CallByName(IDispatch& object, const wchar_t* member, const std::wstring* argument, VARIANT* result);

// TextOf, NumberOf and TruthOf return the value of a property, converted to the result type. They throw Failure when
// reading the property fails, as CallByName does, and when the value cannot be converted.
std::wstring TextOf(IDispatch& object, const wchar_t* property);
long NumberOf(IDispatch& object, const wchar_t* property);
bool TruthOf(IDispatch& object, const wchar_t* property);
// Returns the strings in a property whose value is an array of VARIANT with the lower bound 0; skips elements that are
// not strings. Returns an empty vector when the value of the property has another type. Throws Failure when reading the
// property fails, as CallByName does.
std::vector<std::wstring> TextsOf(IDispatch& object, const wchar_t* property);

// Creates an object by its ProgID and returns the object AddRef'ed. Throws Failure: 429 (cannot create object) when no
// class has the ProgID, otherwise the error with which the class refused the creation.
IDispatch* CreateByName(const std::wstring& className);

// Whether a class has this ProgID.
bool IsClass(const std::wstring& className);

}  // namespace wendrill::script_host
