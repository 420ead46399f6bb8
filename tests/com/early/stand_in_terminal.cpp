#include "stand_in_terminal.h"

#include <olectl.h>

namespace wendrill::com::testing {
namespace {

StandInTerminal* current = nullptr;

// A collection's enumerator over nothing.
class NoElements final : public IEnumVARIANT {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override {
    const bool known = wanted == IID_IUnknown || wanted == IID_IEnumVARIANT;
    *object = known ? this : nullptr;
    return known ? AddRef(), S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) {
      delete this;
    }
    return left;
  }
  HRESULT STDMETHODCALLTYPE Next(ULONG, VARIANT*, ULONG* count) override {
    if (count != nullptr) {
      *count = 0;
    }
    return S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG) override { return S_FALSE; }
  HRESULT STDMETHODCALLTYPE Reset() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT**) override { return E_NOTIMPL; }

 private:
  ~NoElements() = default;
  ULONG references_ = 1;
};

class Factory final : public IClassFactory {
 public:
  explicit Factory(std::wstring programmaticId) : programmaticId_(std::move(programmaticId)) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override {
    const bool known = wanted == IID_IUnknown || wanted == IID_IClassFactory;
    *object = known ? this : nullptr;
    return known ? AddRef(), S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) {
      delete this;
    }
    return left;
  }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID wanted, void** object) override {
    *object = nullptr;
    const Reference<IDispatch> made = StandInTerminal::Current()->Make(programmaticId_);
    return made ? made->QueryInterface(wanted, object) : E_FAIL;
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

 private:
  ~Factory() = default;
  ULONG references_ = 1;
  std::wstring programmaticId_;
};

HRESULT AnswerTrue(VARIANT* result) {
  V_VT(result) = VT_BOOL;
  V_BOOL(result) = VARIANT_TRUE;
  return S_OK;
}

}  // namespace

HRESULT AnswerObject(IDispatch* object, VARIANT* result) {
  V_VT(result) = VT_DISPATCH;
  V_DISPATCH(result) = Reference<IDispatch>(object).Release();
  return S_OK;
}

HRESULT Description::QueryInterface(REFIID wanted, void** object) {
  const bool known = wanted == IID_IUnknown || wanted == IID_ITypeInfo;
  *object = known ? this : nullptr;
  return known ? AddRef(), S_OK : E_NOINTERFACE;
}

ULONG Description::Release() {
  const ULONG left = --references_;
  if (left == 0) {
    delete this;
  }
  return left;
}

HRESULT Description::GetIDsOfNames(LPOLESTR* names, UINT count, MEMBERID* ids) {
  const auto known = identifiers_.find(names[0]);
  if (count != 1 || known == identifiers_.end()) {
    return DISP_E_UNKNOWNNAME;
  }
  ids[0] = known->second;
  return S_OK;
}

void StandIn::Has(const wchar_t* name, DISPID id, Answer answer) {
  ids_[name] = id;
  answers_[id] = std::move(answer);
}

void StandIn::HasText(const wchar_t* name, DISPID id, const std::wstring& text) {
  Has(name, id, [text](const DISPPARAMS&, VARIANT* result) {
    V_VT(result) = VT_BSTR;
    V_BSTR(result) = SysAllocString(text.c_str());
    return S_OK;
  });
}

HRESULT StandIn::QueryInterface(REFIID wanted, void** object) {
  *object = nullptr;
  if (wanted == IID_IUnknown || wanted == IID_IDispatch) {
    *object = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
  }
  IUnknown* const found = further ? further(wanted) : nullptr;
  return found != nullptr ? found->QueryInterface(wanted, object) : E_NOINTERFACE;
}

ULONG StandIn::Release() {
  const ULONG left = --references_;
  if (left == 0) {
    delete this;
  }
  return left;
}

HRESULT StandIn::GetTypeInfoCount(UINT* count) {
  *count = describe ? 1 : 0;
  return S_OK;
}

HRESULT StandIn::GetTypeInfo(UINT, LCID, ITypeInfo** information) {
  *information = describe ? describe().Release() : nullptr;
  return *information != nullptr ? S_OK : DISP_E_BADINDEX;
}

HRESULT StandIn::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) {
  const auto known = ids_.find(names[0]);
  ids[0] = known != ids_.end() ? known->second : DISPID_UNKNOWN;
  return known != ids_.end() ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT StandIn::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT* result, EXCEPINFO*, UINT*) {
  const auto known = answers_.find(id);
  if (known == answers_.end()) {
    return DISP_E_MEMBERNOTFOUND;
  }
  OwnedVariant unwanted;
  return known->second(*arguments, result != nullptr ? result : &unwanted);
}

void EventPoint::Fire(DISPID event) const {
  if (isConnected_) {
    DISPPARAMS none{};
    sink_->Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr);
  }
}

HRESULT EventPoint::QueryInterface(REFIID wanted, void** object) {
  if (wanted == IID_IConnectionPointContainer) {
    *object = static_cast<IConnectionPointContainer*>(this);
    return S_OK;
  }
  const bool known = wanted == IID_IUnknown || wanted == IID_IConnectionPoint;
  *object = known ? static_cast<IConnectionPoint*>(this) : nullptr;
  return known ? S_OK : E_NOINTERFACE;
}

HRESULT EventPoint::FindConnectionPoint(REFIID wanted, IConnectionPoint** point) {
  *point = nullptr;
  if (!knows(wanted)) {
    return CONNECT_E_NOCONNECTION;
  }
  found_ = wanted;
  *point = this;
  return S_OK;
}

HRESULT EventPoint::Advise(IUnknown* sink, DWORD* cookie) {
  if (FAILED(sink->QueryInterface(found_, sink_.ReceiveVoid()))) {
    return CONNECT_E_CANNOTCONNECT;
  }
  isConnected_ = true;
  *cookie = 1;
  return S_OK;
}

HRESULT EventPoint::Unadvise(DWORD) {
  isConnected_ = false;
  if (!keepsSinks) {
    sink_ = {};
  }
  return S_OK;
}

StandInTerminal* StandInTerminal::Current() {
  return current;
}

StandInTerminal::StandInTerminal() {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  current = this;
}

StandInTerminal::~StandInTerminal() {
  lastResponse_ = {};
  current = nullptr;
  CoUninitialize();
}

void StandInTerminal::TearDown() {
  EXPECT_TRUE(LibraryCanUnload());
}

Reference<_CQuillet> StandInTerminal::CreateQuillet() {
  Reference<_CQuillet> quillet;
  EXPECT_EQ(S_OK, CoCreateInstance(CLSID_CQuillet, nullptr, CLSCTX_INPROC_SERVER, __uuidof(_CQuillet),
                                   quillet.ReceiveVoid()));
  return quillet;
}

bool StandInTerminal::LibraryCanUnload() {
  using CanUnload = HRESULT(WINAPI*)();
  const HMODULE library = GetModuleHandleW(L"Wendrill23.dll");
  return library == nullptr ||
         reinterpret_cast<CanUnload>(reinterpret_cast<void*>(GetProcAddress(library, "DllCanUnloadNow")))() == S_OK;
}

Reference<IDispatch> StandInTerminal::Make(const std::wstring& programmaticId) {
  Reference<StandIn> made;
  if (programmaticId == L"kzuHostToolKit.HostSessionList") {
    made = NewSessionList();
  } else if (programmaticId == L"kzuHostToolKit.HostSession") {
    made = NewSession();
  } else if (programmaticId == L"szuPNR.PNR") {
    made = StandIn::New();
  }
  return Reference<IDispatch>(made.Get());
}

Reference<StandIn> StandInTerminal::NewSessionList() {
  const auto list = StandIn::New();
  list->Has(L"Count", 1, [](const DISPPARAMS&, VARIANT* result) {
    V_VT(result) = VT_I4;
    V_I4(result) = 1;
    return S_OK;
  });
  list->Has(L"_NewEnum", DISPID_NEWENUM, [](const DISPPARAMS&, VARIANT* result) {
    V_VT(result) = VT_UNKNOWN;
    V_UNKNOWN(result) = new NoElements();
    return S_OK;
  });
  return list;
}

Reference<StandIn> StandInTerminal::NewSession() {
  const auto session = StandIn::New();
  session->Has(L"SendKey", 1, [this](const DISPPARAMS& arguments, VARIANT* result) {
    const LONG key = V_I4(&arguments.rgvarg[0]);
    journal += L"key " + std::to_wstring(key) + L"; ";
    onKey(key);
    return AnswerTrue(result);
  });
  session->Has(L"Send", 2, [this](const DISPPARAMS& arguments, VARIANT* result) {
    const std::wstring entry = *V_BSTRREF(&arguments.rgvarg[1]);
    journal += L"send " + entry + L"; ";
    lastResponse_ = onSend ? onSend(entry) : Reference<IDispatch>(StandIn::New().Get());
    return AnswerObject(lastResponse_.Get(), result);
  });
  session->Has(L"LastResponse", 3,
               [this](const DISPPARAMS&, VARIANT* result) { return AnswerObject(lastResponse_.Get(), result); });
  dressSession(*session.Get());
  return session;
}

}  // namespace wendrill::com::testing

// The system asks this program itself for the terminal's classes: the manifest names it as their file.
STDAPI DllGetClassObject(REFCLSID id, REFIID wanted, void** object) {
  using wendrill::com::Reference;
  *object = nullptr;
  LPOLESTR programmaticId = nullptr;
  if (FAILED(ProgIDFromCLSID(id, &programmaticId))) {
    return CLASS_E_CLASSNOTAVAILABLE;
  }
  const auto factory =
      Reference<IClassFactory>::Adopt(new wendrill::com::testing::Factory(std::wstring(programmaticId)));
  CoTaskMemFree(programmaticId);
  return factory->QueryInterface(wanted, object);
}
