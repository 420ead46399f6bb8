// The recorder's own calls of the terminal's objects. The program does not notice when such a call fails.
#pragma once

#include <ole2.h>
#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>

#include "com/server/automation_types.h"
#include "common/value.h"

namespace wendrill::recorder {

// Saves and clears the thread's error information, which belongs to the program, and restores it in the destructor.
class OwnErrorInformation {
 public:
  OwnErrorInformation() { GetErrorInfo(0, programs_.Receive()); }
  ~OwnErrorInformation() { SetErrorInfo(0, programs_.Get()); }
  OwnErrorInformation(const OwnErrorInformation&) = delete;
  OwnErrorInformation& operator=(const OwnErrorInformation&) = delete;

 private:
  com::Reference<IErrorInfo> programs_;
};

// The DISPID of a member; nullopt when the object has no member of this name.
std::optional<DISPID> IdOf(IDispatch* object, const wchar_t* name);

// Reads a property or calls a method without arguments. Returns false when the call failed or the member does not
// exist.
bool Read(IDispatch* object, DISPID id, VARIANT* result);
bool Read(IDispatch* object, const wchar_t* name, VARIANT* result);

// Reads a property or calls a method without arguments, and converts the result. Returns nullopt when the call or the
// conversion failed.
std::optional<std::u16string> ReadText(IDispatch* object, const wchar_t* name);
std::optional<std::u16string> ReadText(IDispatch* object, DISPID id);
std::optional<std::int32_t> ReadNumber(IDispatch* object, const wchar_t* name);

// Reads a property that contains an object, or an item of a list. Returns an empty reference for Nothing, for a value
// that is not an object, and when the call failed.
com::Reference<IDispatch> ObjectAt(IDispatch* object, const wchar_t* name);
com::Reference<IDispatch> ObjectAt(IDispatch* object, DISPID id);
com::Reference<IDispatch> ItemAt(IDispatch* object, DISPID id, std::int32_t position);  // `position` counts from 1

// Converts a VARIANT to a value for the recording. Follows by-reference VARIANTs. Returns nullopt for a VARIANT that
// cannot be converted.
std::optional<std::u16string> TextIn(const VARIANT& value);
std::optional<std::int32_t> NumberIn(const VARIANT& value);
std::optional<bool> TruthIn(const VARIANT& value);
std::optional<Value> ValueIn(const VARIANT& value);  // nullopt also for an object

// Whether a VARIANT contains an object or Nothing. By-reference VARIANTs are not followed, so the answer for them is
// false.
bool IsObject(const VARIANT& value);

// The object in a VARIANT, AddRef'ed; the VARIANT keeps its own reference. Empty for Nothing, for an object without
// IDispatch and for any other value.
com::Reference<IDispatch> ObjectIn(const VARIANT& value);

}  // namespace wendrill::recorder
