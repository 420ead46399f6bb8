// What the two DLLs promise as servers: their locks, identities of interfaces, creation that fails.
#include <ocidl.h>

#include "desktop_fixture.h"
#include "late_calls.h"

namespace wendrill::com::testing {
namespace {

using Server = Desktop;

Reference<IClassFactory> FactoryOf(const CLSID& id) {
  Reference<IClassFactory> factory;
  EXPECT_EQ(S_OK, CoGetClassObject(id, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory, factory.ReceiveVoid()));
  return factory;
}

TEST_F(Server, SurplusUnlocksDoNotOutweighALaterLock) {
  const auto factory = FactoryOf(CLSID_CQueue);
  for (int surplus = 0; surplus < 3; ++surplus) {
    EXPECT_EQ(S_OK, factory->LockServer(FALSE));
  }
  EXPECT_EQ(S_OK, factory->LockServer(TRUE));
  const auto lockedBy = FactoryOf(CLSID_CBatch);  // any factory unlocks what another one locked
  EXPECT_FALSE(CanUnloadDll(L"Wendrill23.dll"));
  EXPECT_EQ(S_OK, lockedBy->LockServer(FALSE));
}

TEST_F(Server, SurplusUnlocksDoNotOutweighALivingFactory) {
  const auto factory = FactoryOf(CLSID_CQueue);
  for (int surplus = 0; surplus < 3; ++surplus) {
    EXPECT_EQ(S_OK, factory->LockServer(FALSE));
  }
  EXPECT_FALSE(CanUnloadDll(L"Wendrill23.dll"));
}

// COM itself may keep a class's factory, so the factories come from the DLL.
TEST_F(Server, ALockHoldsWithoutAnyObject) {
  const auto quillet = CreateQuillet();  // the DLL is there
  using GetClassObject = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
  const auto getClassObject = reinterpret_cast<GetClassObject>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"Wendrill23.dll"), "DllGetClassObject")));
  const auto lock = [&](BOOL locked) {
    Reference<IClassFactory> factory;
    EXPECT_EQ(S_OK, getClassObject(CLSID_CQueue, IID_IClassFactory, factory.ReceiveVoid()));
    EXPECT_EQ(S_OK, factory->LockServer(locked));
  };
  lock(FALSE);
  lock(FALSE);
  lock(TRUE);
  lock(TRUE);
  lock(FALSE);
  const_cast<Reference<_CQuillet>&>(quillet) = {};
  EXPECT_FALSE(CanUnloadDll(L"Wendrill23.dll"));
  lock(FALSE);
  EXPECT_TRUE(CanUnloadDll(L"Wendrill23.dll"));
}

TEST_F(Server, AForeignInterfaceIsUnknownToLateBinding) {
  VARIANT_BOOL found = VARIANT_FALSE;
  Load(L"session = [{ name = \"A\" }]\n[[pnr]]\nRecordLocator = \"ABC123\"\n");
  const auto quillet = CreateQuillet();
  ASSERT_EQ(S_OK, quillet->RetrieveRecLoc(Text(L"ABC123"), &found));
  const auto pnr = Create<_CPNR>(CLSID_CPNR);
  Reference<IDispatch> simulated;
  ASSERT_EQ(S_OK, pnr->get_PNR(simulated.Receive()));
  for (const auto& object : {quillet.As<IDispatch>(), Create<IDispatch>(CLSID_ParamBag), simulated}) {
    auto* name = const_cast<LPOLESTR>(L"Text");
    DISPID id = 0;
    DISPPARAMS none{};
    OwnedVariant result;
    EXPECT_EQ(DISP_E_UNKNOWNINTERFACE, object->GetIDsOfNames(IID_IDispatch, &name, 1, LOCALE_USER_DEFAULT, &id));
    EXPECT_EQ(DISP_E_UNKNOWNINTERFACE, object->Invoke(1, IID_IDispatch, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET,
                                                      &none, &result, nullptr, nullptr));
    EXPECT_EQ(VT_EMPTY, V_VT(&result));
  }
}

// The library keeps descriptions of the terminal's types as long as anything of its own lives.
TEST_F(Server, AFirstCreationThatFailsKeepsNothingOfTheTerminals) {
  const auto list = Create<IDispatch>(CLSID_HostSessionList);
  Reference<ITypeInfo> description;
  ASSERT_EQ(S_OK, list->GetTypeInfo(0, LOCALE_USER_DEFAULT, description.Receive()));
  const auto references = [&] {
    description->AddRef();
    return description.Get()->Release();
  };
  const ULONG before = references();
  Load(L"");  // no session runs
  for (const CLSID& id : {CLSID_CQuillet, CLSID_CEncodeUtils}) {
    Reference<IUnknown> object;
    EXPECT_TRUE(FAILED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, object.ReceiveVoid())));
    EXPECT_NE(L"", TakeError().description);
    EXPECT_EQ(before, references());
  }
}

TEST_F(Server, AnObjectThatIsNoBagIsMet438WithTheLibrarysTitle) {
  Load(L"session = [{ name = \"A\" }]\n[[pnr]]\nRecordLocator = \"ABC123\"\n[[pnr.Names]]\nElementNo = \"1\"\n");
  const auto quillet = CreateQuillet();
  VARIANT_BOOL found = VARIANT_FALSE;
  ASSERT_EQ(S_OK, quillet->RetrieveRecLoc(Text(L"ABC123"), &found));
  const auto pnr = Create<_CPNR>(CLSID_CPNR);
  for (const auto& object : {quillet.As<IDispatch>(), Create<IDispatch>(CLSID_CBatch)}) {
    IDispatch* passed = object.Get();
    Reference<IDispatch> result;
    EXPECT_OWN_ERROR(438, pnr.As<_IGet>()->NameElement(&passed, result.Receive()));
    OwnedVariant lateResult;
    EXCEPINFO exception{};
    EXPECT_EQ(DISP_E_EXCEPTION, Invoke(pnr.Get(), L"NameElement", {Object(passed)}, &lateResult, &exception));
    const Exception late = Taken(exception);
    EXPECT_EQ(static_cast<SCODE>(0x800A01B6), late.code);
    EXPECT_EQ(L"Wendrill23", late.source);
    EXPECT_EQ(WideMessageOf(438), late.description);
  }
}

}  // namespace
}  // namespace wendrill::com::testing
