// The base class of objects that scripts call. It implements IDispatch with a table of member names and one virtual
// function that carries out every call.
#pragma once

#include <oaidl.h>
#include <windows.h>

#include <span>
#include <string>
#include <string_view>

#include "com/server/counted_object.h"
#include "time_limit.h"

namespace wendrill::script_host {

// The error of a failed member call, thrown as an exception. A script reads the members of this structure as
// Err.Number, Err.Source and Err.Description.
struct Failure {
  HRESULT status = E_FAIL;
  std::wstring source;
  std::wstring description;
};

// Returns the Err.Number that a script reads for a status: n for a status 0x800A0000 + n with n from 0 to 0xFFFF, and
// the status itself for every other status.
long NumberOf(HRESULT status);

// Returns the system's message for a status, without its full stop and line break; empty when the system has no
// message.
std::wstring SystemMessage(HRESULT status);

// Returns the characters of a BSTR and frees the BSTR. A null BSTR gives an empty string.
std::wstring Taken(BSTR text);

struct MemberName {
  std::wstring_view name;
  DISPID id;
};

// The arguments of one call. `index` is the position of an argument: 0 for the first. IsNull, Text and Number throw
// Failure with DISP_E_BADPARAMCOUNT for a missing argument. Text and Number throw Failure with the status of
// VariantChangeType for an argument that cannot be converted.
class CallArguments {
 public:
  explicit CallArguments(const DISPPARAMS& parameters) : parameters_(parameters) {}

  UINT Count() const { return parameters_.cArgs; }
  // Whether the argument is the value Null (VT_NULL).
  bool IsNull(UINT index) const;
  std::wstring Text(UINT index) const;
  long Number(UINT index) const;

 private:
  // Returns a copy of the argument, converted to `type`. VT_EMPTY as `type` means that the copy keeps its type. The
  // caller clears the copy (VariantClear).
  VARIANT Converted(UINT index, VARTYPE type) const;

  const DISPPARAMS& parameters_;
};

// SetText, SetNumber, SetTruth and SetObject each store a value in `result`, and do not free the value that `result`
// had before.
void SetText(VARIANT& result, std::wstring_view text);
void SetNumber(VARIANT& result, long number);
void SetTruth(VARIANT& result, bool truth);
void SetObject(VARIANT& result, IDispatch* object);  // AddRefs `object`

// The lock of the script host's objects, as the second template argument of CountedObject. In a DLL, such a lock keeps
// the DLL loaded while the object exists. This lock does nothing, because the script host is a program.
struct NoLock {};

class ScriptObject : public com::CountedObject<com::CountOfAnyThread, NoLock, IDispatch> {
 public:
  // `name` is the name of the object in error messages, such as "WScript.Arguments". `limit`, and the characters and
  // elements that `name` and `members` refer to, must outlive the object.
  ScriptObject(std::wstring_view name, std::span<const MemberName> members, TimeLimit& limit)
      : name_(name), members_(members), limit_(limit) {}

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** typeInfo) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

 protected:
  TimeLimit& Limit() { return limit_; }

  // Carries out one method call or property read, and stores the return value in `result`, which is VT_EMPTY before the
  // call. Throws Failure when the call fails. When the Failure has no description, Invoke returns its status without
  // filling in EXCEPINFO.
  virtual void Call(DISPID member, const CallArguments& arguments, VARIANT& result) = 0;

 private:
  // Notifies the time limit of a call, so that the report of the time limit can name the last call. Throws Failure when
  // the time limit is over.
  void Enter(DISPID member);

  std::wstring_view name_;
  std::span<const MemberName> members_;
  TimeLimit& limit_;
};

}  // namespace wendrill::script_host
