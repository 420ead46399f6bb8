// Sessions of other terminals and their ReceivedResponse event: how it is found, and what becomes of the sink.
#include <vector>

#include "desktop_fixture.h"
#include "stand_in_terminal.h"

namespace wendrill::com::testing {
namespace {

constexpr GUID kLibrary = {0x2C9B6D11, 0x5A0E, 0x4E2B, {0x8F, 0x1D, 0x60, 0x77, 0x3A, 0x41, 0x0C, 0x00}};
constexpr GUID kSessionType = {0x2C9B6D11, 0x5A0E, 0x4E2B, {0x8F, 0x1D, 0x60, 0x77, 0x3A, 0x41, 0x0C, 0x01}};
constexpr GUID kEvents = {0x2C9B6D11, 0x5A0E, 0x4E2B, {0x8F, 0x1D, 0x60, 0x77, 0x3A, 0x41, 0x0C, 0x02}};
constexpr GUID kOtherEvents = {0x2C9B6D11, 0x5A0E, 0x4E2B, {0x8F, 0x1D, 0x60, 0x77, 0x3A, 0x41, 0x0C, 0x03}};
constexpr GUID kOtherType = {0x2C9B6D11, 0x5A0E, 0x4E2B, {0x8F, 0x1D, 0x60, 0x77, 0x3A, 0x41, 0x0C, 0x04}};
constexpr GUID kSomeClass = {0x2C9B6D11, 0x5A0E, 0x4E2B, {0x8F, 0x1D, 0x60, 0x77, 0x3A, 0x41, 0x0C, 0x05}};

constexpr DISPID kEvent = 42;
constexpr DISPID kOtherEvent = 7;
constexpr LONG kPA2 = 353;

// A type library made in memory.
class MadeLibrary {
 public:
  MadeLibrary() {
    EXPECT_EQ(S_OK, CreateTypeLib2(SYS_WIN32, L"stand_in.tlb", library_.Receive()));
    EXPECT_EQ(S_OK, library_->SetGuid(kLibrary));
  }

  // A dispatch interface with one method.
  Reference<ITypeInfo> AddInterface(const GUID& id, const wchar_t* name, const wchar_t* method, DISPID methodId) {
    Reference<ICreateTypeInfo> type;
    EXPECT_EQ(S_OK, library_->CreateTypeInfo(const_cast<LPOLESTR>(name), TKIND_DISPATCH, type.Receive()));
    EXPECT_EQ(S_OK, type->SetGuid(id));
    FUNCDESC function{};
    function.memid = methodId;
    function.funckind = FUNC_DISPATCH;
    function.invkind = INVOKE_FUNC;
    function.callconv = CC_STDCALL;
    function.elemdescFunc.tdesc.vt = VT_VOID;
    EXPECT_EQ(S_OK, type->AddFuncDesc(0, &function));
    auto* methodName = const_cast<LPOLESTR>(method);
    EXPECT_EQ(S_OK, type->SetFuncAndParamNames(0, &methodName, 1));
    EXPECT_EQ(S_OK, type->LayOut());
    return type.As<ITypeInfo>();
  }

  struct Implemented {
    Reference<ITypeInfo> type;
    INT flags;
  };
  Reference<ITypeInfo> AddClass(const wchar_t* name, const std::vector<Implemented>& interfaces) {
    Reference<ICreateTypeInfo> type;
    EXPECT_EQ(S_OK, library_->CreateTypeInfo(const_cast<LPOLESTR>(name), TKIND_COCLASS, type.Receive()));
    EXPECT_EQ(S_OK, type->SetGuid(kSomeClass));
    UINT index = 0;
    for (const Implemented& implemented : interfaces) {
      HREFTYPE reference = 0;
      EXPECT_EQ(S_OK, type->AddRefTypeInfo(implemented.type.Get(), &reference));
      EXPECT_EQ(S_OK, type->AddImplType(index, reference));
      EXPECT_EQ(S_OK, type->SetImplTypeFlags(index, implemented.flags));
      ++index;
    }
    EXPECT_EQ(S_OK, type->LayOut());
    return type.As<ITypeInfo>();
  }

 private:
  Reference<ICreateTypeLib2> library_;
};

constexpr INT kDefault = IMPLTYPEFLAG_FDEFAULT;
constexpr INT kSource = IMPLTYPEFLAG_FSOURCE;

// What says which class an object is of.
class ClassProvider final : public IProvideClassInfo {
 public:
  explicit ClassProvider(Reference<ITypeInfo> information) : information_(std::move(information)) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override {
    *object = wanted == IID_IProvideClassInfo ? this : nullptr;
    return *object != nullptr ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** information) override {
    *information = Reference<ITypeInfo>(information_).Release();
    return *information != nullptr ? S_OK : E_FAIL;
  }

 private:
  Reference<ITypeInfo> information_;
};

class EventSource : public StandInTerminal {
 protected:
  EventSource() {
    dressSession = [this](StandIn& session) {
      session.further = [this](REFIID wanted) -> IUnknown* {
        if (wanted == IID_IConnectionPointContainer) {
          return static_cast<IConnectionPointContainer*>(&point);
        }
        return wanted == IID_IProvideClassInfo ? provider : nullptr;
      };
      if (description) {
        session.describe = [this] { return description; };
      }
    };
    point.knows = [](REFIID events) { return events == kEvents; };
    // The terminal answers the key with its event at once. Where that reaches nobody, the quit message ends the wait.
    onKey = [this](LONG key) {
      if (key == kPA2) {
        point.Fire(kEvent);
        PostQuitMessage(0);
      }
    };
  }
  ~EventSource() override {
    MSG message;
    PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
  }

  void ExpectTheModeIsSwitched() {
    {
      const auto quillet = CreateQuillet();
      EXPECT_EQ(S_OK, quillet->ChangeSMOD(5, 12));
    }
    EXPECT_EQ(L"key 353; key 353; send 0512; ", journal);
    EXPECT_EQ(kEvents, point.FoundLast());
    EXPECT_FALSE(point.IsConnected());
  }

  void ExpectNoEventIsFound() {
    const auto quillet = CreateQuillet();
    EXPECT_EQ(static_cast<HRESULT>(0x800A0000 + 2520), quillet->ChangeSMOD(5, 12));
    EXPECT_EQ(L"", journal);
    EXPECT_FALSE(point.IsConnected());
  }

  Reference<ITypeInfo> AddSessionType() { return library.AddInterface(kSessionType, L"Session", L"Send", 2); }
  Reference<ITypeInfo> AddEvents() { return library.AddInterface(kEvents, L"Events", L"ReceivedResponse", kEvent); }
  Reference<ITypeInfo> AddOtherEvents() {
    return library.AddInterface(kOtherEvents, L"OtherEvents", L"ReceivedResponse", kOtherEvent);
  }

  MadeLibrary library;
  EventPoint point;
  IUnknown* provider = nullptr;      // the session's IProvideClassInfo
  Reference<ITypeInfo> description;  // of the session
};

TEST_F(EventSource, IsTheOneOfTheClassThatTheSessionProvides) {
  ClassProvider provided(
      library.AddClass(L"SessionClass", {{AddSessionType(), kDefault}, {AddEvents(), kDefault | kSource}}));
  provider = &provided;
  ExpectTheModeIsSwitched();
}

TEST_F(EventSource, IsFoundInTheLibraryByTheClassOfTheSessionsType) {
  description = AddSessionType();
  library.AddClass(L"SessionClass", {{description, kDefault}, {AddEvents(), kDefault | kSource}});
  ExpectTheModeIsSwitched();
}

TEST_F(EventSource, IsFoundAmongSeveralOfOneClass) {
  description = AddSessionType();
  const auto withoutTheEvent = library.AddInterface(kOtherEvents, L"OtherEvents", L"Closed", kOtherEvent);
  library.AddClass(L"SessionClass",
                   {{description, kDefault}, {withoutTheEvent, kDefault | kSource}, {AddEvents(), kSource}});
  point.knows = [](REFIID) { return true; };
  ExpectTheModeIsSwitched();
}

TEST_F(EventSource, OfAnotherClassIsPassedOverWhereTheSessionsOwnHasOne) {
  const auto otherType = library.AddInterface(kOtherType, L"Printer", L"Print", 1);
  library.AddClass(L"PrinterClass", {{otherType, kDefault}, {AddOtherEvents(), kDefault | kSource}});
  description = AddSessionType();
  library.AddClass(L"SessionClass", {{description, kDefault}, {AddEvents(), kDefault | kSource}});
  point.knows = [](REFIID) { return true; };
  ExpectTheModeIsSwitched();
}

TEST_F(EventSource, IsFoundInAClassThatDoesNotNameTheSessionsType) {
  description = AddSessionType();
  const auto otherType = library.AddInterface(kOtherType, L"Session2", L"Send", 2);
  library.AddClass(L"SessionClass", {{otherType, kDefault}, {AddEvents(), kDefault | kSource}});
  ExpectTheModeIsSwitched();
}

TEST_F(EventSource, IsFoundInALibraryWithoutClasses) {
  AddOtherEvents();
  description = AddSessionType();
  AddEvents();
  ExpectTheModeIsSwitched();
}

TEST_F(EventSource, IsFoundInTheLibraryWhereTheProvidedClassIsOfNoUse) {
  ClassProvider provided({});
  provider = &provided;
  description = AddSessionType();
  library.AddClass(L"SessionClass", {{description, kDefault}, {AddEvents(), kDefault | kSource}});
  ExpectTheModeIsSwitched();
}

TEST_F(EventSource, ThatTheSessionDoesNotOfferIs2520) {
  description = AddSessionType();
  library.AddClass(L"SessionClass", {{description, kDefault}, {AddOtherEvents(), kDefault | kSource}});
  ExpectNoEventIsFound();
}

TEST_F(EventSource, OfASessionWithoutAnyDescriptionIs2520) {
  ExpectNoEventIsFound();
}

TEST_F(EventSource, OfADescriptionWithoutALibraryIs2520) {
  description = Description::New({{L"Send", 2}});
  ExpectNoEventIsFound();
  description = {};
  EXPECT_EQ(0, Description::Living());
}

// The sink is an object of the library's: as long as a terminal holds it the library must stay loaded.
TEST_F(EventSource, MayHoldTheSinkLongerThanTheConnectionLasts) {
  ClassProvider provided(
      library.AddClass(L"SessionClass", {{AddSessionType(), kDefault}, {AddEvents(), kDefault | kSource}}));
  provider = &provided;
  point.keepsSinks = true;
  ExpectTheModeIsSwitched();
  auto sink = point.TakeSink();
  EXPECT_FALSE(LibraryCanUnload());
  DISPPARAMS none{};
  EXPECT_EQ(S_OK,
            sink->Invoke(kEvent, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr));
  sink = {};
  EXPECT_TRUE(LibraryCanUnload());
}

}  // namespace
}  // namespace wendrill::com::testing
