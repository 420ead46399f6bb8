// The automation half of an object that scripts call: names come from a table, calls end in one function.
#pragma once

#include <oaidl.h>
#include <windows.h>

#include <span>
#include <string>
#include <string_view>

namespace wendrill::script_host {

// How a member fails: the script sees it as Err.Number, Err.Source and Err.Description.
struct Failure {
  HRESULT status = E_FAIL;
  std::wstring source;
  std::wstring description;
};

// The number that a script reads for a status: 0x800A0000 + n is n, anything else stays.
long NumberOf(HRESULT status);

// What the system knows to say about a status; empty when it knows nothing.
std::wstring SystemMessage(HRESULT status);

struct MemberName {
  std::wstring_view name;
  DISPID id;
};

// The arguments of one call from left to right, counted from 0. A missing one, or one that does not convert, fails the
// call with the automation status for that.
class CallArguments {
 public:
  explicit CallArguments(const DISPPARAMS& parameters) : parameters_(parameters) {}

  UINT Count() const { return parameters_.cArgs; }
  bool IsNull(UINT index) const;
  std::wstring Text(UINT index) const;
  long Number(UINT index) const;

 private:
  // A copy that the caller clears; VT_EMPTY asks for the value as it is.
  VARIANT Converted(UINT index, VARTYPE type) const;

  const DISPPARAMS& parameters_;
};

void SetText(VARIANT& result, std::wstring_view text);
void SetNumber(VARIANT& result, long number);
void SetObject(VARIANT& result, IDispatch* object);  // takes a reference of its own

class ScriptObject : public IDispatch {
 public:
  explicit ScriptObject(std::span<const MemberName> members) : members_(members) {}
  ScriptObject(const ScriptObject&) = delete;
  ScriptObject& operator=(const ScriptObject&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID identity, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** typeInfo) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

 protected:
  virtual ~ScriptObject() = default;

  // Carries out one call or read. Fails by throwing Failure; with no description the status alone is reported.
  virtual void Call(DISPID member, const CallArguments& arguments, VARIANT& result) = 0;

 private:
  std::span<const MemberName> members_;
  ULONG references_ = 1;
};

}  // namespace wendrill::script_host
