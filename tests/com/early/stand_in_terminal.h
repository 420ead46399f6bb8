// A terminal made by other people: a stand-in whose objects a test makes member by member, in place of the simulator.
//
// The program carries the terminal's classes itself: its manifest gives them the terminal's programmatic names.
#pragma once

#include <gtest/gtest.h>
#include <ocidl.h>
#include <ole2.h>
#include <windows.h>

#include <functional>
#include <map>
#include <string>
#include <utility>

#include "com/server/automation_types.h"
#include "wendrill23.h"

namespace wendrill::com::testing {

// A description that knows names and identifiers, and nothing else.
class Description final : public ITypeInfo {
 public:
  using Identifiers = std::map<std::wstring, DISPID>;

  static Reference<ITypeInfo> New(Identifiers identifiers) {
    return Reference<ITypeInfo>::Adopt(new Description(std::move(identifiers)));
  }
  static int Living() { return living; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(LPOLESTR* names, UINT count, MEMBERID* ids) override;

  HRESULT STDMETHODCALLTYPE GetTypeAttr(TYPEATTR**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeComp(ITypeComp**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetFuncDesc(UINT, FUNCDESC**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetVarDesc(UINT, VARDESC**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetNames(MEMBERID, BSTR*, UINT, UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetRefTypeOfImplType(UINT, HREFTYPE*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetImplTypeFlags(UINT, INT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Invoke(PVOID, MEMBERID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE GetDocumentation(MEMBERID, BSTR*, BSTR*, DWORD*, BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetDllEntry(MEMBERID, INVOKEKIND, BSTR*, BSTR*, WORD*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetRefTypeInfo(HREFTYPE, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE AddressOfMember(MEMBERID, INVOKEKIND, PVOID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID, PVOID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetMops(MEMBERID, BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetContainingTypeLib(ITypeLib**, UINT*) override { return E_NOTIMPL; }
  void STDMETHODCALLTYPE ReleaseTypeAttr(TYPEATTR*) override {}
  void STDMETHODCALLTYPE ReleaseFuncDesc(FUNCDESC*) override {}
  void STDMETHODCALLTYPE ReleaseVarDesc(VARDESC*) override {}

 private:
  explicit Description(Identifiers identifiers) : identifiers_(std::move(identifiers)) { ++living; }
  ~Description() { --living; }

  static inline int living = 0;
  ULONG references_ = 1;
  Identifiers identifiers_;
};

// An automation object. Its members' names, identifiers and answers are its own; its code, and so its method table, is
// the same for every object of every type.
class StandIn final : public IDispatch {
 public:
  using Answer = std::function<HRESULT(const DISPPARAMS& arguments, VARIANT* result)>;

  static Reference<StandIn> New() { return Reference<StandIn>::Adopt(new StandIn()); }

  void Has(const wchar_t* name, DISPID id, Answer answer);
  void HasText(const wchar_t* name, DISPID id, const std::wstring& text);

  std::function<Reference<ITypeInfo>()> describe;  // without it the object has no description
  std::function<IUnknown*(REFIID)> further;        // its interfaces beyond IDispatch, borrowed; null for none

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override;
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** information) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT* result, EXCEPINFO*,
                                   UINT*) override;

 private:
  ULONG references_ = 1;
  std::map<std::wstring, DISPID> ids_;
  std::map<DISPID, Answer> answers_;
};

HRESULT AnswerObject(IDispatch* object, VARIANT* result);

// The session's one connection point. It lives as long as the test.
class EventPoint final : public IConnectionPointContainer, public IConnectionPoint {
 public:
  std::function<bool(REFIID)> knows = [](REFIID) { return false; };  // whether the session has events of an interface
  bool keepsSinks = false;                                           // a disconnected sink is held all the same

  IID FoundLast() const { return found_; }  // the interface whose point was given out last
  bool IsConnected() const { return isConnected_; }
  void Fire(DISPID event) const;
  Reference<IDispatch> TakeSink() { return std::move(sink_); }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID wanted, IConnectionPoint** point) override;
  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override;
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }

 private:
  IID found_ = IID_NULL;
  Reference<IDispatch> sink_;
  bool isConnected_ = false;
};

// A desktop with this terminal alone. One session runs; it accepts every key, and answers entries as a test wants.
class StandInTerminal : public ::testing::Test {
 public:
  // An object of a class of the terminal, by its programmatic name.
  Reference<IDispatch> Make(const std::wstring& programmaticId);
  static StandInTerminal* Current();

 protected:
  StandInTerminal();
  ~StandInTerminal() override;

  // Nothing of the library lives any more. Objects must be local to the test.
  void TearDown() override;

  Reference<_CQuillet> CreateQuillet();
  bool LibraryCanUnload();

  std::function<Reference<IDispatch>(const std::wstring& entry)> onSend;  // gives the response; it becomes the last one
  std::function<void(LONG key)> onKey = [](LONG) {};
  std::function<void(StandIn&)> dressSession = [](StandIn&) {};  // adds to each session that is made
  std::wstring journal;                                          // "key 322; send AN; "

 private:
  Reference<StandIn> NewSession();
  Reference<StandIn> NewSessionList();

  Reference<IDispatch> lastResponse_;
};

}  // namespace wendrill::com::testing
