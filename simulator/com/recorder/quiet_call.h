// Calls that the recorder itself makes of the terminal's objects. The program does not notice when such a call fails.
#pragma once

#include <ole2.h>
#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>

#include "com/server/automation_types.h"
#include "common/value.h"

namespace wendrill::recorder {

// Saves and clears the thread's error information, which belongs to the program. The destructor restores it.
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

// Reads a property or calls a method without arguments, and stores the result in `result`. Returns false when the call
// failed or the member does not exist.
bool Read(IDispatch* object, DISPID id, VARIANT* result);
bool Read(IDispatch* object, const wchar_t* name, VARIANT* result);

// Reads a property or calls a method without arguments, and converts the result. Returns nullopt when the member does
// not exist, or when the call or the conversion failed.
std::optional<std::u16string> ReadText(IDispatch* object, const wchar_t* name);
std::optional<std::u16string> ReadText(IDispatch* object, DISPID id);
std::optional<std::int32_t> ReadNumber(IDispatch* object, const wchar_t* name);

// ObjectAt returns the object that a property or a method without arguments returns. ItemAt returns the object that the
// member with this DISPID returns for a position, such as an item of a list. ObjectAt and ItemAt return an empty
// reference when the call fails, and when the result is Nothing, an object without IDispatch, or not an object.
com::Reference<IDispatch> ObjectAt(IDispatch* object, const wchar_t* name);
com::Reference<IDispatch> ObjectAt(IDispatch* object, DISPID id);
com::Reference<IDispatch> ItemAt(IDispatch* object, DISPID id, std::int32_t position);  // `position` counts from 1

// TextIn, NumberIn and TruthIn convert a VARIANT to the type that they return. They return nullopt for an object, for
// Nothing, and for a VARIANT that cannot be converted. ValueIn returns a Value of the VARIANT's own type, and returns
// nullopt for a VARIANT that is or contains an object or that a Value cannot represent. All four functions follow
// by-reference VARIANTs.
std::optional<std::u16string> TextIn(const VARIANT& value);
std::optional<std::int32_t> NumberIn(const VARIANT& value);
std::optional<bool> TruthIn(const VARIANT& value);
std::optional<Value> ValueIn(const VARIANT& value);

// Whether a VARIANT contains an object or Nothing. By-reference VARIANTs are not followed, so the result for a
// by-reference VARIANT is false.
bool IsObject(const VARIANT& value);

// The object in a VARIANT, AddRef'ed; the VARIANT keeps its own reference. Empty for Nothing, for an object without
// IDispatch and for any other value.
com::Reference<IDispatch> ObjectIn(const VARIANT& value);

}  // namespace wendrill::recorder
