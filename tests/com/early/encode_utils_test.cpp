// The host connection for other components, early bound.
#include "desktop_fixture.h"
#include "late_calls.h"

namespace wendrill::com::testing {
namespace {

using EncodeUtils = Desktop;

constexpr auto kConnectFailed = static_cast<HRESULT>(0x80040456);
constexpr wchar_t kConnectFailedMessage[] =
    L"Failed to connect to Selvarin Quillet Session.\r\rVerify that an Selvarin Quillet session is started.";

HRESULT CreateUtils(Reference<_CEncodeUtils>* utils) {
  return CoCreateInstance(CLSID_CEncodeUtils, nullptr, CLSCTX_INPROC_SERVER, IID__CEncodeUtils, utils->ReceiveVoid());
}

TEST_F(EncodeUtils, CreationWithoutASessionFailsWithTheTwoPartMessage) {
  Load(L"[terminal]\n");
  Reference<_CEncodeUtils> utils;
  EXPECT_EQ(kConnectFailed, CreateUtils(&utils));
  EXPECT_FALSE(utils);
  const ErrorOnThread error = TakeError();
  EXPECT_EQ(L"CEncodeUtils.Class_Initialize", error.source);
  EXPECT_EQ(kConnectFailedMessage, error.description);
}

TEST_F(EncodeUtils, WhateverFailsInTheCreationIsTheSameErrorAndNothingStays) {
  Load(L"[[session]]\nname = 'A'\n");
  FailNext(L"Count", E_ACCESSDENIED, 1);
  Reference<_CEncodeUtils> utils;
  EXPECT_EQ(kConnectFailed, CreateUtils(&utils));
  EXPECT_EQ(kConnectFailedMessage, TakeError().description);
  EXPECT_EQ(0, LiveObjects());
}

TEST_F(EncodeUtils, EncodeSessionIsOneObject) {
  const auto utils = Create<_CEncodeUtils>(CLSID_CEncodeUtils);
  Reference<IDispatch> first;
  Reference<IDispatch> second;
  EXPECT_EQ(S_OK, utils->get_EncodeSession(first.Receive()));
  EXPECT_EQ(S_OK, utils->get_EncodeSession(second.Receive()));
  ASSERT_TRUE(first);
  EXPECT_EQ(first.As<IUnknown>().Get(), second.As<IUnknown>().Get());
}

TEST_F(EncodeUtils, TheConnectionOutlivesItsMaker) {
  auto utils = Create<_CEncodeUtils>(CLSID_CEncodeUtils);
  Reference<IDispatch> connection;
  ASSERT_EQ(S_OK, utils->get_EncodeSession(connection.Receive()));
  utils = {};
  const auto pnr = Create<IDispatch>(CLSID_PNR);
  EXPECT_EQ(S_OK, Invoke(pnr.Get(), L"RetrieveCurrent", {Object(connection.Get())}, nullptr));
  EXPECT_EQ(L"read pnr on display\r\n", Journal());
}

TEST_F(EncodeUtils, AFailingConnectionArrivesUnchanged) {
  const auto utils = Create<_CEncodeUtils>(CLSID_CEncodeUtils);
  Reference<IDispatch> connection;
  FailNext(L"HostConnection", E_ACCESSDENIED, 1);
  EXPECT_EQ(E_ACCESSDENIED, utils->get_EncodeSession(connection.Receive()));
  EXPECT_FALSE(connection);
  EXPECT_EQ(L"QuilletSimulator", TakeError().source);
}

TEST_F(EncodeUtils, AMissingPlaceForTheResultIsRejected) {
  const auto utils = Create<_CEncodeUtils>(CLSID_CEncodeUtils);
  EXPECT_EQ(E_POINTER, utils->get_EncodeSession(nullptr));
}

TEST_F(EncodeUtils, NoClassCanBeMadePartOfAnotherObject) {
  const auto outer = Create<IUnknown>(CLSID_CQueue);
  for (const CLSID& id : {CLSID_CEncodeUtils, CLSID_CQuillet, CLSID_CQueue, CLSID_CBatch, CLSID_CPNR, CLSID_IGet}) {
    void* object = nullptr;
    EXPECT_EQ(CLASS_E_NOAGGREGATION, CoCreateInstance(id, outer.Get(), CLSCTX_INPROC_SERVER, IID_IUnknown, &object));
    EXPECT_EQ(nullptr, object);
  }
}

TEST_F(EncodeUtils, InterfaceClassesCanBeMadeWithoutASession) {
  Load(L"[terminal]\n");
  const auto get = Create<_IGet>(CLSID_IGet);
  const auto getPnr = Create<_IGetPNR>(CLSID_IGetPNR);
  IDispatch* none = nullptr;
  Reference<IDispatch> result;
  EXPECT_EQ(S_OK, get->AirSegments(&none, result.Receive()));
  EXPECT_FALSE(result);
  EXPECT_EQ(S_OK, getPnr->Elements(&none, result.Receive()));
  EXPECT_FALSE(result);
}

}  // namespace
}  // namespace wendrill::com::testing
