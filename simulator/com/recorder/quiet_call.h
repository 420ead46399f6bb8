// The recorder's own calls of the terminal's objects: what fails in them stays between the recorder and the terminal.
#pragma once

#include <ole2.h>
#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>

#include "com/server/automation_types.h"
#include "common/value.h"

namespace wendrill::recorder {

// While one exists, the thread's error information is another: the program's is put back at the end.
class OwnErrorInformation {
 public:
  OwnErrorInformation() { GetErrorInfo(0, programs_.Receive()); }
  ~OwnErrorInformation() { SetErrorInfo(0, programs_.Get()); }
  OwnErrorInformation(const OwnErrorInformation&) = delete;
  OwnErrorInformation& operator=(const OwnErrorInformation&) = delete;

 private:
  com::Reference<IErrorInfo> programs_;
};

// The identifier of a member's name; nullopt when the object has no such member.
std::optional<DISPID> IdOf(IDispatch* object, const wchar_t* name);

// Reads a property or calls a method without arguments. False when that failed.
bool Read(IDispatch* object, DISPID id, VARIANT* result);
bool Read(IDispatch* object, const wchar_t* name, VARIANT* result);

// The same, converted. Nullopt when the call or the conversion failed.
std::optional<std::u16string> ReadText(IDispatch* object, const wchar_t* name);
std::optional<std::u16string> ReadText(IDispatch* object, DISPID id);
std::optional<std::int32_t> ReadNumber(IDispatch* object, const wchar_t* name);

// An object; empty for Nothing and when the call failed.
com::Reference<IDispatch> ObjectAt(IDispatch* object, const wchar_t* name);
com::Reference<IDispatch> ObjectAt(IDispatch* object, DISPID id);
com::Reference<IDispatch> ItemAt(IDispatch* object, DISPID id, std::int32_t position);  // of a list, from 1

// The values of automation as the recording takes them. References are followed; nullopt for what does not convert.
std::optional<std::u16string> TextIn(const VARIANT& value);
std::optional<std::int32_t> NumberIn(const VARIANT& value);
std::optional<bool> TruthIn(const VARIANT& value);
std::optional<Value> ValueIn(const VARIANT& value);  // nullopt for an object

// Whether a VARIANT has an object, which may be Nothing. References are not followed.
bool IsObject(const VARIANT& value);

// The object of a VARIANT, which keeps its own reference; empty for anything else.
com::Reference<IDispatch> ObjectIn(const VARIANT& value);

}  // namespace wendrill::recorder
