// CQuillet early bound.
#include "desktop_fixture.h"
#include "late_calls.h"

namespace wendrill::com::testing {
namespace {

using QuilletObject = Desktop;

constexpr wchar_t kTwoSessions[] =
    LR"([[session]]
name = "A"
[[session]]
name = "B"
[[reply]]
entry = "HE"
screen = "HELP"
type = 23
text = "help text"
[[reply]]
entry = "SLOW"
screen = "AT LAST"
late = 2
[[pnr]]
RecordLocator = "ABC123"
entries = ["SP2", "ER"]
on_display = true
status = 7
display = "RP/PARXX0100"
)";

TEST_F(QuilletObject, CreationWithoutASessionFailsThroughTheClassFactory) {
  Load(L"[terminal]\n");
  void* object = nullptr;
  EXPECT_OWN_ERROR(2510, CoCreateInstance(CLSID_CQuillet, nullptr, CLSCTX_INPROC_SERVER, IID__CQuillet, &object));
  EXPECT_EQ(nullptr, object);
}

// Two sessions are three steps: the third one finds the end.
TEST_F(QuilletObject, CreationMeetsTheErrorOfEachStepThroughTheSessions) {
  Load(kTwoSessions);
  for (LONG step = 1; step <= 3; ++step) {
    FailNext(L"Next", E_ACCESSDENIED, step);
    void* object = nullptr;
    EXPECT_EQ(E_ACCESSDENIED, CoCreateInstance(CLSID_CQuillet, nullptr, CLSCTX_INPROC_SERVER, IID__CQuillet, &object));
    const auto error = TakeError();
    EXPECT_EQ(L"QuilletSimulator", error.source);
    EXPECT_EQ(L"Next was made to fail, as planned.", error.description);
    EXPECT_EQ(nullptr, object);
    EXPECT_EQ(0, LiveObjects()) << "step " << step;
  }
  Text names;
  EXPECT_EQ(S_OK, CreateQuillet()->get_GetSessionList(names.Receive()));
  EXPECT_EQ(L"A;B", names.Wide());
}

// The first element's text, the number of the others after it.
std::pair<std::wstring, int> Walked(IEnumVARIANT* elements, const wchar_t* property) {
  std::wstring first;
  int others = -1;
  for (OwnedVariant element; elements->Next(1, &element, nullptr) == S_OK; VariantClear(&element)) {
    OwnedVariant text;
    EXPECT_EQ(S_OK, Invoke(V_DISPATCH(&element), property, {}, &text));
    first = ++others == 0 ? V_BSTR(&text) : first;
  }
  return {first, others};
}

Reference<IEnumVARIANT> WalkOver(IDispatch* collection) {
  OwnedVariant walk;
  EXPECT_EQ(S_OK, Invoke(collection, DISPID_NEWENUM, DISPATCH_METHOD | DISPATCH_PROPERTYGET, {}, &walk));
  return Reference<IUnknown>(V_UNKNOWN(&walk)).As<IEnumVARIANT>();
}

// As JScript's moveFirst does.
TEST_F(QuilletObject, WalksOverTheTerminalsObjectsStartAgain) {
  Load(
      L"[[session]]\nname = 'A'\n[[session]]\nname = 'B'\n[[pnr]]\non_display = true\ndisplay = 'RP/PARXX0100'\n"
      L"[[pnr.Names]]\nText = '1.SMITH'\n[[pnr.Names]]\nText = '2.SMITH'\n");
  const auto quillet = CreateQuillet();
  LONG status = 0;
  ASSERT_EQ(S_OK, quillet->RetrieveCurrent(&status));
  Reference<IDispatch> pnr;
  ASSERT_EQ(S_OK, Create<_CPNR>(CLSID_CPNR)->get_PNR(pnr.Receive()));
  OwnedVariant names;
  ASSERT_EQ(S_OK, Invoke(pnr.Get(), L"Names", {}, &names));
  const auto overNames = WalkOver(V_DISPATCH(&names));
  const auto overSessions = WalkOver(Create<IDispatch>(CLSID_HostSessionList).Get());
  for (int round = 1; round <= 2; ++round) {
    EXPECT_EQ(std::pair(std::wstring(L"1.SMITH"), 1), Walked(overNames.Get(), L"Text"));
    EXPECT_EQ(std::pair(std::wstring(L"A"), 1), Walked(overSessions.Get(), L"SessionName"));
    EXPECT_EQ(S_OK, overNames->Reset());
    EXPECT_EQ(S_OK, overSessions->Reset());
  }
}

TEST_F(QuilletObject, SessionListIsTheFirstObjectsAlone) {
  Load(kTwoSessions);
  const auto first = CreateQuillet();
  const auto second = CreateQuillet();
  Text names;
  EXPECT_EQ(S_OK, first->get_GetSessionList(names.Receive()));
  EXPECT_EQ(L"A;B", names.Wide());
  EXPECT_EQ(S_OK, second->get_GetSessionList(names.Receive()));
  EXPECT_EQ(L"", names.Wide());
}

TEST_F(QuilletObject, CommandRoundTrips) {
  const auto quillet = CreateQuillet();
  Text command;
  EXPECT_EQ(S_OK, quillet->put_Command(Text(L"HE")));
  EXPECT_EQ(S_OK, quillet->get_Command(command.Receive()));
  EXPECT_EQ(L"HE", command.Wide());
  EXPECT_EQ(S_OK, quillet->put_Command(nullptr));
  EXPECT_EQ(S_OK, quillet->get_Command(command.Receive()));
  EXPECT_EQ(L"", command.Wide());
}

TEST_F(QuilletObject, SendingMembersReachTheTerminalInTheirOwnWays) {
  Load(kTwoSessions);
  const auto quillet = CreateQuillet();
  Text response;
  EXPECT_EQ(S_OK, quillet->SendCommand(Text(L"HE"), response.Receive()));
  EXPECT_EQ(Row(L"HELP"), response.Wide());
  EXPECT_EQ(L"key 322\r\nsend HE\r\n", Journal());
  EXPECT_EQ(S_OK, quillet->SendCommandNoClear(Text(L"SLOW"), response.Receive()));
  EXPECT_EQ(Row(L"AT LAST"), response.Wide());
  EXPECT_EQ(L"send SLOW\r\n", Journal());
  EXPECT_EQ(S_OK, quillet->SendCommandNoTransmit(Text(L"HE"), response.Receive()));
  EXPECT_EQ(L"", response.Wide());
  EXPECT_EQ(L"type HE\r\n", Journal());
}

TEST_F(QuilletObject, LastPropertiesReadTheLastResponse) {
  Load(kTwoSessions);
  const auto quillet = CreateQuillet();
  Text text;
  ASSERT_EQ(S_OK, quillet->SendCommand(Text(L"HE"), text.Receive()));
  SHORT number = 0;
  EXPECT_EQ(S_OK, quillet->get_LastBuffer(text.Receive()));
  EXPECT_EQ(Row(L"HELP"), text.Wide());
  EXPECT_EQ(S_OK, quillet->get_LastResponseType(&number));
  EXPECT_EQ(23, number);
  EXPECT_EQ(S_OK, quillet->get_LastNumberOfColumns(&number));
  EXPECT_EQ(80, number);
  EXPECT_EQ(S_OK, quillet->get_LastNumberOfLines(&number));
  EXPECT_EQ(24, number);
  EXPECT_EQ(S_OK, quillet->get_LastHostCommand(text.Receive()));
  EXPECT_EQ(L"HE", text.Wide());
  EXPECT_EQ(S_OK, quillet->get_LastText(text.Receive()));
  EXPECT_EQ(L"help text", text.Wide());
  EXPECT_EQ(S_OK, quillet->GetLineFromLastBuffer(1, text.Receive()));
  EXPECT_EQ(Row(L"HELP"), text.Wide());
}

TEST_F(QuilletObject, ConnectSessionAndStopLoopChangeTheSharedSession) {
  Load(kTwoSessions);
  const auto quillet = CreateQuillet();
  Text response;
  EXPECT_EQ(S_OK, quillet->ConnectSession(Text(L"B")));
  EXPECT_OWN_ERROR(2535, quillet->ConnectSession(Text(L"NOBODY")));
  EXPECT_OWN_ERROR(2505, quillet->SendCommand(Text(L"HE"), response.Receive()));
  EXPECT_EQ(S_OK, quillet->ConnectSession(Text(L"A")));
  EXPECT_EQ(S_OK, quillet->StopLoop());
  EXPECT_OWN_ERROR(2530, quillet->SendCommandNoClear(Text(L"HE"), response.Receive()));
  EXPECT_OWN_ERROR(91, quillet->get_LastBuffer(response.Receive()));
}

TEST_F(QuilletObject, RetrievalMembersFillThePnr) {
  Load(kTwoSessions);
  const auto quillet = CreateQuillet();
  VARIANT_BOOL found = VARIANT_FALSE;
  LONG status = 0;
  EXPECT_EQ(S_OK, quillet->RetrieveCurrent(&status));
  EXPECT_EQ(7, status);
  EXPECT_EQ(S_OK, quillet->RetrieveRecLoc(Text(L"ABC123"), &found));
  EXPECT_EQ(VARIANT_TRUE, found);
  EXPECT_EQ(S_OK, quillet->SplitPNR(Text(L"2"), &found));
  EXPECT_EQ(VARIANT_TRUE, found);
  EXPECT_EQ(S_OK, quillet->ReadPNR(Text(L"ER"), &found));
  EXPECT_EQ(VARIANT_TRUE, found);
  EXPECT_EQ(
      L"read pnr on display\r\nretrieve RTABC123\r\nretrieve SP2\r\nalarm lock\r\nretrieve ER\r\nalarm unlock\r\n",
      Journal());
  EXPECT_EQ(S_OK, quillet->RetrieveRecLoc(Text(L"NOBODY"), &found));
  EXPECT_EQ(VARIANT_FALSE, found);
}

TEST_F(QuilletObject, KeysModeAndAlarm) {
  Load(kTwoSessions);
  const auto quillet = CreateQuillet();
  QuilletKeyValues key = kbEnter;
  SHORT code = -1;
  EXPECT_EQ(S_OK, quillet->SendKey(&key));
  EXPECT_EQ(S_OK, quillet->ChangeSMOD(5, 12));
  EXPECT_EQ(S_OK, quillet->LockAlarm());
  EXPECT_EQ(S_OK, quillet->UnLockAlarm());
  EXPECT_EQ(S_OK, quillet->LockUnLockAlarm(VARIANT_TRUE, &code));
  EXPECT_EQ(0, code);
  EXPECT_EQ(S_OK, quillet->mTmpSession_ReceivedResponse(nullptr));
  EXPECT_EQ(L"key 272\r\nkey 353\r\nkey 353\r\nsend 0512 (unanswered)\r\nalarm lock\r\nalarm unlock\r\nalarm lock\r\n",
            Journal());
}

TEST_F(QuilletObject, EveryFailureNumberArrivesWithItsMessage) {
  Load(kTwoSessions);
  const auto quillet = CreateQuillet();
  Text text;
  VARIANT_BOOL found = VARIANT_FALSE;
  LONG status = 0;
  QuilletKeyValues key = kbEnter;
  FailNext(L"Send", E_FAIL, 1);
  EXPECT_OWN_ERROR(2505, quillet->SendCommand(Text(L"HE"), text.Receive()));
  FailNext(L"Send", E_FAIL, 1);
  EXPECT_OWN_ERROR(2505, quillet->SendCommandNoTransmit(Text(L"HE"), text.Receive()));
  FailNext(L"Send", E_FAIL, 1);
  EXPECT_OWN_ERROR(2530, quillet->SendCommandNoClear(Text(L"HE"), text.Receive()));
  FailNext(L"RetrieveCurrent", E_FAIL, 1);
  EXPECT_OWN_ERROR(2500, quillet->RetrieveCurrent(&status));
  FailNext(L"Retrieve", E_FAIL, 1);
  EXPECT_OWN_ERROR(2501, quillet->RetrieveRecLoc(Text(L"ABC123"), &found));
  FailNext(L"Retrieve", E_FAIL, 1);
  EXPECT_OWN_ERROR(2502, quillet->SplitPNR(Text(L"2"), &found));
  FailNext(L"Retrieve", E_FAIL, 1);
  EXPECT_OWN_ERROR(2503, quillet->ReadPNR(Text(L"ER"), &found));
  FailNext(L"SendKey", E_FAIL, 1);
  EXPECT_OWN_ERROR(2515, quillet->SendKey(&key));
  FailNext(L"SendKey", E_FAIL, 1);
  EXPECT_OWN_ERROR(2520, quillet->ChangeSMOD(5, 0));
}

TEST_F(QuilletObject, MissingPlacesForResultsAreRejected) {
  const auto quillet = CreateQuillet();
  EXPECT_EQ(E_POINTER, quillet->SendCommand(Text(L"HE"), nullptr));
  EXPECT_EQ(E_POINTER, quillet->get_LastResponseType(nullptr));
  EXPECT_EQ(E_POINTER, quillet->RetrieveCurrent(nullptr));
  EXPECT_EQ(E_POINTER, quillet->SendKey(nullptr));
}

}  // namespace
}  // namespace wendrill::com::testing
