// Base class for objects that scripts call: implements IDispatch with a table of names and one virtual function for all
// calls.
#pragma once

#include <oaidl.h>
#include <windows.h>

#include <span>
#include <string>
#include <string_view>

#include "com/server/counted_object.h"
#include "time_limit.h"

namespace wendrill::script_host {

// How a member fails: the script sees it as Err.Number, Err.Source and Err.Description.
struct Failure {
  HRESULT status = E_FAIL;
  std::wstring source;
  std::wstring description;
};

// The Err.Number that a script reads for a status: n for 0x800A0000 + n, the status itself otherwise.
long NumberOf(HRESULT status);

// The system's message for a status; empty when the system has no message.
std::wstring SystemMessage(HRESULT status);

// The characters of a string that is then freed.
std::wstring Taken(BSTR text);

struct MemberName {
  std::wstring_view name;
  DISPID id;
};

// The arguments of one call from first to last, counted from 0. A missing argument, and an argument that does not
// convert, throw Failure with automation's status for that.
class CallArguments {
 public:
  explicit CallArguments(const DISPPARAMS& parameters) : parameters_(parameters) {}

  UINT Count() const { return parameters_.cArgs; }
  bool IsNull(UINT index) const;
  std::wstring Text(UINT index) const;
  long Number(UINT index) const;

 private:
  // A converted copy, which the caller clears; VT_EMPTY copies without conversion.
  VARIANT Converted(UINT index, VARTYPE type) const;

  const DISPPARAMS& parameters_;
};

void SetText(VARIANT& result, std::wstring_view text);
void SetNumber(VARIANT& result, long number);
void SetTruth(VARIANT& result, bool truth);
void SetObject(VARIANT& result, IDispatch* object);  // AddRefs `object`

// No DLL stays loaded for an object of this program.
struct NoLock {};

class ScriptObject : public com::CountedObject<com::CountOfAnyThread, NoLock, IDispatch> {
 public:
  // `name` is how messages name the object: WScript.Arguments
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

  // Carries out one method call or property read. Throws Failure to fail; a Failure without a description reports the
  // status alone.
  virtual void Call(DISPID member, const CallArguments& arguments, VARIANT& result) = 0;

 private:
  // Fails when the time limit is over.
  void Enter(DISPID member);

  std::wstring_view name_;
  std::span<const MemberName> members_;
  TimeLimit& limit_;
};

}  // namespace wendrill::script_host
