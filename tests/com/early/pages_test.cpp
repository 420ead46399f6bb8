// Paged responses and entries whose handling a bag chooses, early bound, and what the caller's messages do meanwhile.
#include <functional>
#include <utility>

#include "arrays.h"
#include "bag.h"
#include "client_bag.h"
#include "desktop_fixture.h"
#include "late_calls.h"

namespace wendrill::com::testing {
namespace {

constexpr wchar_t kPages[] =
    LR"toml([[session]]
name = "A"
[[reply]]
entry = "TQ"
pages = ['''
TITLE
ONE
)> 1/ 3''', '''
TITLE
TWO
)> 2/ 3''', '''
TITLE
THREE
)> 3/ 3''']
[[reply]]
entry = "DO1"
pages = ['''
ONE
TWO''', '''
THREE
END OF DISPLAY''']
[[reply]]
entry = "HE"
screen = "HELP"
[[reply]]
entry = "TQT"
pages = ["FARE 1 )", "FARE 2"]
[[reply]]
entry = "GROWING"
screen = "FIRST PART"
text = "FIRST PART DAC:CONT  +"
[[reply]]
entry = "GROWN"
screen = "COMPLETE"
text = "SECOND PART"
[[pnr]]
entries = ["HE"]
display = "RP/PARXX0100"
)toml";

class Pages : public Desktop {
 protected:
  void SetUp() override { Load(kPages); }

  const std::wstring kWhole = Row(L"TITLE") + Row(L"ONE") + Row(L"TWO") + Row(L"THREE") + Row(L")> 3/ 3");
  const std::vector<std::wstring> kEach = {Row(L"TITLE") + Row(L"ONE") + Row(L")> 1/ 3"),
                                           Row(L"TITLE") + Row(L"TWO") + Row(L")> 2/ 3"),
                                           Row(L"TITLE") + Row(L"THREE") + Row(L")> 3/ 3")};

  // A bag with these Boolean keys set, and the entry for SendCommandTicsPas where one is given.
  static Bag BagWith(std::initializer_list<const wchar_t*> keys, const wchar_t* entry = L"") {
    Bag bag;
    VARIANT yes = OfType(VT_BOOL);
    V_BOOL(&yes) = VARIANT_TRUE;
    for (const wchar_t* key : keys) {
      bag.Set(key, yes);
    }
    bag.Set(L"strKeyCommand", entry);
    return bag;
  }
};

std::wstring FI(_CQuillet* quillet, const wchar_t* entry, IDispatch* bag) {
  Text response;
  IDispatch* passed = bag;
  EXPECT_EQ(S_OK, quillet->SendCommandFI(Text(entry), &passed, response.Receive()));
  EXPECT_EQ(bag, passed);
  return response.Wide();
}

std::wstring TicsPas(_CQuillet* quillet, IDispatch* bag) {
  Text response;
  IDispatch* passed = bag;
  EXPECT_EQ(S_OK, quillet->SendCommandTicsPas(&passed, response.Receive()));
  EXPECT_EQ(bag, passed);
  return response.Wide();
}

// --- Collecting

TEST_F(Pages, EveryMemberCollectsTheWholeResponse) {
  const auto quillet = CreateQuillet();
  Text response;
  EXPECT_EQ(S_OK, quillet->SendCommandGetAll(Text(L"TQ"), response.Receive()));
  EXPECT_EQ(kWhole, response.Wide());
  EXPECT_EQ(L"key 322\r\nsend TQ\r\nsend MD\r\nsend MD\r\n", Journal());
  EXPECT_EQ(S_OK, quillet->SendCommandGetAllNoClear(Text(L"TQ"), response.Receive()));
  EXPECT_EQ(kWhole, response.Wide());
  EXPECT_EQ(L"send TQ\r\nsend MD\r\nsend MD\r\n", Journal());
  EXPECT_EQ(S_OK, quillet->SendCommand(Text(L"TQ"), response.Receive()));
  EXPECT_EQ(S_OK, quillet->GetTotalHostResponse(response.Receive()));
  EXPECT_EQ(kWhole, response.Wide());
  EXPECT_EQ(S_OK, quillet->SendCommandLines(Text(L"DO1"), Text(L"2"), Text(L"0"), response.Receive()));
  EXPECT_EQ(Row(L"TWO") + Row(L"THREE") + Row(L"END OF DISPLAY"), response.Wide());
}

TEST_F(Pages, PagesComeBackInAnArrayOfVariantsCountedFrom1) {
  const auto quillet = CreateQuillet();
  Text response;
  OwnedVariant pages;
  EXPECT_EQ(S_OK, quillet->SendCommandCollectPages(Text(L"TQ"), &pages, response.Receive()));
  EXPECT_EQ(kWhole, response.Wide());
  ASSERT_EQ(VT_ARRAY | VT_VARIANT, V_VT(&pages));
  EXPECT_EQ(1, LowerBound(V_ARRAY(&pages)));
  EXPECT_EQ(kEach, TextsIn(V_ARRAY(&pages)));
}

TEST_F(Pages, WhatTheVariantHeldIsReplaced) {
  const auto quillet = CreateQuillet();
  Text response;
  OwnedVariant pages;
  V_VT(&pages) = VT_DISPATCH;
  V_DISPATCH(&pages) = quillet.Get();
  quillet->AddRef();
  EXPECT_EQ(S_OK, quillet->SendCommandCollectPages(Text(L"HE"), &pages, response.Receive()));
  ASSERT_EQ(VT_ARRAY | VT_VARIANT, V_VT(&pages));
  EXPECT_EQ(std::vector{Row(L"HELP")}, TextsIn(V_ARRAY(&pages)));
  EXPECT_EQ(S_OK, quillet->SendCommandCollectPages(nullptr, &pages, response.Receive()));
  ASSERT_EQ(VT_ARRAY | VT_VARIANT, V_VT(&pages));
  EXPECT_EQ(std::vector<std::wstring>(), TextsIn(V_ARRAY(&pages)));
}

TEST_F(Pages, AFailureLeavesTheVariantAsItWas) {
  const auto quillet = CreateQuillet();
  Text response;
  VARIANT pages = Number(5);
  FailNext(L"Send", E_FAIL, 2);
  EXPECT_OWN_ERROR(2557, quillet->SendCommandCollectPages(Text(L"TQ"), &pages, response.Receive()));
  EXPECT_EQ(VT_I4, V_VT(&pages));
  EXPECT_EQ(5, V_I4(&pages));
}

TEST_F(Pages, ACallerWithoutAPlaceForThePagesGetsTheText) {
  const auto quillet = CreateQuillet();
  Text response;
  EXPECT_EQ(S_OK, quillet->SendCommandCollectPages(Text(L"TQ"), nullptr, response.Receive()));
  EXPECT_EQ(kWhole, response.Wide());
}

TEST_F(Pages, LateBoundCallersMayPassAVariableOrAnArrayOfTheirs) {
  const auto quillet = CreateQuillet();
  const Text entry(L"TQ");
  OwnedVariant variable;
  EXPECT_EQ(S_OK, Invoke(quillet.Get(), L"SendCommandCollectPages", {String(entry), ByReference(&variable)}, nullptr));
  ASSERT_EQ(VT_ARRAY | VT_VARIANT, V_VT(&variable));
  EXPECT_EQ(kEach, TextsIn(V_ARRAY(&variable)));

  // What a script passes that was itself given the variable by reference.
  OwnedVariant outer;
  static_cast<VARIANT&>(outer) = ByReference(&variable);
  const Text help(L"HE");
  EXPECT_EQ(S_OK, Invoke(quillet.Get(), L"SendCommandCollectPages", {String(help), ByReference(&outer)}, nullptr));
  ASSERT_EQ(VT_ARRAY | VT_VARIANT, V_VT(&variable));
  EXPECT_EQ(std::vector{Row(L"HELP")}, TextsIn(V_ARRAY(&variable)));

  // What a typed language passes for an array variable of variants, and for one of strings.
  OwnedArray variants;
  VARIANT arrayOfVariants = OfType(VT_BYREF | VT_ARRAY | VT_VARIANT);
  V_ARRAYREF(&arrayOfVariants) = variants.InOut();
  EXPECT_EQ(S_OK, Invoke(quillet.Get(), L"SendCommandCollectPages", {String(entry), arrayOfVariants}, nullptr));
  ASSERT_NE(nullptr, variants.Get());
  EXPECT_EQ(kEach, TextsIn(variants.Get()));

  OwnedArray strings(ArrayOfStrings(0, {L"what was there"}));
  VARIANT arrayOfStrings = OfType(VT_BYREF | VT_ARRAY | VT_BSTR);
  V_ARRAYREF(&arrayOfStrings) = strings.InOut();
  EXPECT_EQ(S_OK, Invoke(quillet.Get(), L"SendCommandCollectPages", {String(entry), arrayOfStrings}, nullptr));
  EXPECT_EQ(1, LowerBound(strings.Get()));
  EXPECT_EQ(kEach, TextsIn(strings.Get()));
}

TEST_F(Pages, TypedCallersVariablesReceiveThePagesToo) {
  const auto quillet = CreateQuillet();
  Text response;
  OwnedArray strings;
  VARIANT pages = OfType(VT_BYREF | VT_ARRAY | VT_BSTR);
  V_ARRAYREF(&pages) = strings.InOut();
  EXPECT_EQ(S_OK, quillet->SendCommandCollectPages(Text(L"TQ"), &pages, response.Receive()));
  EXPECT_EQ(kEach, TextsIn(strings.Get()));

  OwnedVariant variable;
  pages = ByReference(&variable);
  EXPECT_EQ(S_OK, quillet->SendCommandCollectPages(Text(L"TQ"), &pages, response.Receive()));
  ASSERT_EQ(VT_ARRAY | VT_VARIANT, V_VT(&variable));
  EXPECT_EQ(kEach, TextsIn(V_ARRAY(&variable)));

  LONG number = 5;
  pages = OfType(VT_BYREF | VT_I4);
  V_I4REF(&pages) = &number;
  const LONG before = Calls();
  EXPECT_OWN_ERROR(13, quillet->SendCommandCollectPages(Text(L"TQ"), &pages, response.Receive()));
  EXPECT_EQ(5, number);
  EXPECT_EQ(before, Calls()) << "something was sent";
}

TEST_F(Pages, ATypedCallersArrayThatCannotBeReplacedIsRejectedBeforeAnythingIsSent) {
  const auto quillet = CreateQuillet();
  Text response;
  OwnedArray fixed(ArrayOfStrings(0, {L"kept"}));
  fixed.Get()->fFeatures |= FADF_FIXEDSIZE;
  VARIANT pages = OfType(VT_BYREF | VT_ARRAY | VT_BSTR);
  V_ARRAYREF(&pages) = fixed.InOut();
  const LONG before = Calls();
  EXPECT_EQ(DISP_E_ARRAYISLOCKED, quillet->SendCommandCollectPages(Text(L"TQ"), &pages, response.Receive()));
  EXPECT_EQ(std::vector<std::wstring>{L"kept"}, TextsIn(fixed.Get()));
  fixed.Get()->fFeatures &= static_cast<USHORT>(~FADF_FIXEDSIZE);

  OwnedVariant variable;
  V_VT(&variable) = VT_ARRAY | VT_BSTR;
  V_ARRAY(&variable) = ArrayOfStrings(0, {L"kept"});
  ASSERT_EQ(S_OK, SafeArrayLock(V_ARRAY(&variable)));
  EXPECT_EQ(DISP_E_ARRAYISLOCKED, quillet->SendCommandCollectPages(Text(L"TQ"), &variable, response.Receive()));
  ASSERT_EQ(S_OK, SafeArrayUnlock(V_ARRAY(&variable)));
  EXPECT_EQ(std::vector<std::wstring>{L"kept"}, TextsIn(V_ARRAY(&variable)));
  EXPECT_EQ(before, Calls()) << "something was sent";
}

// The index of an argument counts from the last one: the pages are 0, the entry is 1.
TEST_F(Pages, ALateBoundVariableThatCannotTakeThemIsRejectedBeforeAnythingIsSent) {
  const auto quillet = CreateQuillet();
  const Text entry(L"TQ");
  LONG number = 5;
  VARIANT asNumber = OfType(VT_BYREF | VT_I4);
  V_I4REF(&asNumber) = &number;
  BSTR text = nullptr;
  VARIANT asText = OfType(VT_BYREF | VT_BSTR);
  V_BSTRREF(&asText) = &text;
  IDispatch* object = nullptr;
  VARIANT asObject = OfType(VT_BYREF | VT_DISPATCH);
  V_DISPATCHREF(&asObject) = &object;
  OwnedArray numbers(SafeArrayCreateVector(VT_I4, 0, 2));
  VARIANT asNumbers = OfType(VT_BYREF | VT_ARRAY | VT_I4);
  V_ARRAYREF(&asNumbers) = numbers.InOut();
  const LONG before = Calls();
  for (VARIANT& variable : std::vector{asNumber, asText, asObject, asNumbers, ByReference(&asNumber)}) {
    UINT argument = 99;
    EXPECT_EQ(DISP_E_TYPEMISMATCH, Invoke(quillet.Get(), L"SendCommandCollectPages", {String(entry), variable}, nullptr,
                                          nullptr, &argument));
    EXPECT_EQ(0U, argument);
  }
  EXPECT_EQ(5, number);

  OwnedArray fixed(ArrayOfStrings(0, {L"kept"}));
  fixed.Get()->fFeatures |= FADF_FIXEDSIZE;
  VARIANT asFixed = OfType(VT_BYREF | VT_ARRAY | VT_BSTR);
  V_ARRAYREF(&asFixed) = fixed.InOut();
  UINT argument = 99;
  EXPECT_EQ(DISP_E_ARRAYISLOCKED,
            Invoke(quillet.Get(), L"SendCommandCollectPages", {String(entry), asFixed}, nullptr, nullptr, &argument));
  EXPECT_EQ(0U, argument);
  EXPECT_EQ(std::vector<std::wstring>{L"kept"}, TextsIn(fixed.Get()));
  fixed.Get()->fFeatures &= static_cast<USHORT>(~FADF_FIXEDSIZE);
  EXPECT_EQ(before, Calls()) << "something was sent";
}

TEST_F(Pages, EveryFailureNumberArrivesWithItsMessage) {
  const auto quillet = CreateQuillet();
  Text text;
  IDispatch* none = nullptr;
  const Bag bag = BagWith({}, L"HE");
  IDispatch* passed = bag.Object();
  FailNext(L"Send", E_FAIL, 1);
  EXPECT_OWN_ERROR(2525, quillet->SendCommandGetAll(Text(L"HE"), text.Receive()));
  FailNext(L"Send", E_FAIL, 1);
  EXPECT_OWN_ERROR(2525, quillet->SendCommandGetAllNoClear(Text(L"HE"), text.Receive()));
  FailNext(L"LastResponse", E_FAIL, 1);
  EXPECT_OWN_ERROR(2545, quillet->GetTotalHostResponse(text.Receive()));
  FailNext(L"Send", E_FAIL, 1);
  EXPECT_OWN_ERROR(2600, quillet->SendCommandLines(Text(L"HE"), nullptr, nullptr, text.Receive()));
  FailNext(L"Send", E_FAIL, 1);
  EXPECT_OWN_ERROR(2506, quillet->SendCommandFI(Text(L"HE"), &passed, text.Receive()));
  FailNext(L"Send", E_FAIL, 1);
  EXPECT_OWN_ERROR(2540, quillet->SendCommandTicsPas(&passed, text.Receive()));
  EXPECT_OWN_ERROR(2506, quillet->SendCommandFI(Text(L"HE"), &none, text.Receive()));
  EXPECT_OWN_ERROR(2506, quillet->SendCommandFI(Text(L"HE"), nullptr, text.Receive()));
  EXPECT_OWN_ERROR(2540, quillet->SendCommandTicsPas(&none, text.Receive()));
  EXPECT_OWN_ERROR(2540, quillet->SendCommandTicsPas(nullptr, text.Receive()));
}

TEST_F(Pages, MissingPlacesForResultsAreRejectedBeforeAnythingIsSent) {
  const auto quillet = CreateQuillet();
  OwnedVariant pages;
  const Bag bag = BagWith({}, L"HE");
  IDispatch* passed = bag.Object();
  Journal();
  EXPECT_EQ(E_POINTER, quillet->SendCommandGetAll(Text(L"HE"), nullptr));
  EXPECT_EQ(E_POINTER, quillet->SendCommandGetAllNoClear(Text(L"HE"), nullptr));
  EXPECT_EQ(E_POINTER, quillet->SendCommandLines(Text(L"HE"), nullptr, nullptr, nullptr));
  EXPECT_EQ(E_POINTER, quillet->SendCommandCollectPages(Text(L"HE"), &pages, nullptr));
  EXPECT_EQ(E_POINTER, quillet->SendCommandFI(Text(L"HE"), &passed, nullptr));
  EXPECT_EQ(E_POINTER, quillet->SendCommandTicsPas(&passed, nullptr));
  EXPECT_EQ(E_POINTER, quillet->GetTotalHostResponse(nullptr));
  EXPECT_EQ(L"", Journal());
}

// --- Bags

TEST_F(Pages, FISendsAsTheKeysOfTheBagSay) {
  const auto quillet = CreateQuillet();
  EXPECT_EQ(kEach[0], FI(quillet.Get(), L"TQ", BagWith({}).Object()));
  EXPECT_EQ(L"send TQ\r\n", Journal());
  EXPECT_EQ(kWhole, FI(quillet.Get(), L"TQ", BagWith({L"blnKeyClear", L"blnKeyGetAll"}).Object()));
  EXPECT_EQ(L"key 322\r\nsend TQ\r\nsend MD\r\nsend MD\r\n", Journal());
  EXPECT_EQ(Row(L"RP/PARXX0100"), FI(quillet.Get(), L"HE", BagWith({L"blnKeyGetAll", L"blnKeyPNR"}).Object()));
  EXPECT_EQ(L"send HE\r\nretrieve HE\r\n", Journal());
  EXPECT_EQ(Row(L"FARE 1 )") + Row(L"FARE 2"),
            FI(quillet.Get(), L"TQT", BagWith({L"blnKeyGetAll", L"blnKeyTST"}).Object()));
  EXPECT_EQ(L"send TQT\r\nsend MD\r\n", Journal());
}

TEST_F(Pages, KeysOfAClientsOwnBagAreReadInTheirOrder) {
  const auto quillet = CreateQuillet();
  const auto bag = ClientBag::Make([](const std::wstring& key, VARIANT* value) {
    if (key == L"strKeyCommand") {
      V_VT(value) = VT_BSTR;
      V_BSTR(value) = SysAllocString(L"HE");
    }
    return S_OK;
  });
  FI(quillet.Get(), L"HE", bag.Get());
  EXPECT_EQ((std::vector<std::wstring>{L"blnKeyClear", L"blnKeyGetAll", L"blnKeyPNR", L"blnKeyTST"}), bag->KeysRead());
  TicsPas(quillet.Get(), bag.Get());
  EXPECT_EQ((std::vector<std::wstring>{L"blnKeyClear", L"blnKeyGetAll", L"blnKeyPNR", L"blnKeyTST", L"strKeyCommand",
                                       L"blnKeyGetAll", L"blnKeyClear"}),
            bag->KeysRead());
  EXPECT_TRUE(bag->KeysPut().empty());
}

TEST_F(Pages, ABagThatFailsOrAnswersNonsenseIsTheMembersError) {
  const auto quillet = CreateQuillet();
  Text text;
  const std::pair<const char*, ClientBag::Read> answers[] = {
      {"a failure", [](const std::wstring&, VARIANT*) { return E_ACCESSDENIED; }},
      {"a failure without a reason", [](const std::wstring&, VARIANT*) { return DISP_E_EXCEPTION; }},
      {"Null",
       [](const std::wstring&, VARIANT* value) {
         V_VT(value) = VT_NULL;
         return S_OK;
       }},
      {"Nothing",
       [](const std::wstring&, VARIANT* value) {
         V_VT(value) = VT_DISPATCH;
         V_DISPATCH(value) = nullptr;
         return S_OK;
       }},
      {"an error value",
       [](const std::wstring&, VARIANT* value) {
         V_VT(value) = VT_ERROR;
         V_ERROR(value) = E_FAIL;
         return S_OK;
       }},
      {"an array",
       [](const std::wstring&, VARIANT* value) {
         V_VT(value) = VT_ARRAY | VT_I4;
         V_ARRAY(value) = SafeArrayCreateVector(VT_I4, 0, 2);
         return S_OK;
       }},
      {"a type that does not exist",
       [](const std::wstring&, VARIANT* value) {
         V_VT(value) = 0xFFF;
         return S_OK;
       }},
  };
  Journal();
  for (const auto& [what, answer] : answers) {
    SCOPED_TRACE(what);
    const auto bag = ClientBag::Make(answer);
    IDispatch* passed = bag.Get();
    EXPECT_OWN_ERROR(2506, quillet->SendCommandFI(Text(L"HE"), &passed, text.Receive()));
    EXPECT_OWN_ERROR(2540, quillet->SendCommandTicsPas(&passed, text.Receive()));
  }
  EXPECT_EQ(L"", Journal());
}

TEST_F(Pages, AnObjectThatIsNoBagIsTheMembersError) {
  const auto quillet = CreateQuillet();
  Text text;
  IDispatch* passed = quillet.Get();
  EXPECT_OWN_ERROR(2506, quillet->SendCommandFI(Text(L"HE"), &passed, text.Receive()));
  EXPECT_OWN_ERROR(2540, quillet->SendCommandTicsPas(&passed, text.Receive()));
  const auto queue = Create<_CQueue>(CLSID_CQueue);
  passed = queue.Get();
  EXPECT_OWN_ERROR(2506, quillet->SendCommandFI(Text(L"HE"), &passed, text.Receive()));
  EXPECT_OWN_ERROR(2540, quillet->SendCommandTicsPas(&passed, text.Receive()));
}

TEST_F(Pages, ABagMayReleaseTheObjectThatReadsIt) {
  auto quillet = CreateQuillet();
  _CQuillet* called = quillet.Get();
  const auto bag = ClientBag::Make([&](const std::wstring&, VARIANT*) {
    quillet = {};  // the only reference that the caller holds
    return S_OK;
  });
  EXPECT_EQ(Row(L"HELP"), FI(called, L"HE", bag.Get()));
}

TEST_F(Pages, ABagMayDropTheSessionThatIsAboutToBeUsed) {
  const auto quillet = CreateQuillet();
  Text text;
  const auto bag = ClientBag::Make([&](const std::wstring&, VARIANT*) { return quillet->StopLoop(); });
  IDispatch* passed = bag.Get();
  EXPECT_OWN_ERROR(2506, quillet->SendCommandFI(Text(L"HE"), &passed, text.Receive()));
}

// --- The caller's messages during a collection

// Runs a work once, from the caller's message queue.
class OnceFromMessages {
 public:
  explicit OnceFromMessages(std::function<void()> work) {
    work_ = std::move(work);
    SetTimer(nullptr, 0, USER_TIMER_MINIMUM, Run);
  }
  ~OnceFromMessages() { EXPECT_FALSE(work_) << "the messages never ran"; }
  OnceFromMessages(const OnceFromMessages&) = delete;
  OnceFromMessages& operator=(const OnceFromMessages&) = delete;

 private:
  static void CALLBACK Run(HWND, UINT, UINT_PTR timer, DWORD) {
    KillTimer(nullptr, timer);
    std::exchange(work_, nullptr)();
  }
  static inline std::function<void()> work_;
};

TEST_F(Pages, StopLoopDuringATicsPasCollectionEndsItAtTheNextPass) {
  const auto quillet = CreateQuillet();
  Text text;
  EXPECT_EQ(S_OK, quillet->SendCommandGetAll(nullptr, text.Receive()));  // sets the loop going
  const OnceFromMessages message([&] { EXPECT_EQ(S_OK, quillet->StopLoop()); });
  EXPECT_EQ(L"FIRST PART DAC:CONT  +", TicsPas(quillet.Get(), BagWith({L"blnKeyGetAll"}, L"GROWING").Object()));
  EXPECT_EQ(L"send GROWING\r\n", Journal());
  EXPECT_OWN_ERROR(2505, quillet->SendCommand(Text(L"HE"), text.Receive()));
}

TEST_F(Pages, AResponseThatGrowsByItselfIsReadAgainUntilItIsComplete) {
  const auto quillet = CreateQuillet();
  const auto other = CreateQuillet();
  Text text;
  EXPECT_EQ(S_OK, quillet->SendCommandGetAll(nullptr, text.Receive()));
  const OnceFromMessages message([&] {
    Text response;
    EXPECT_EQ(S_OK, other->SendCommandNoClear(Text(L"GROWN"), response.Receive()));
  });
  const std::wstring first = L"FIRST PART DAC:CONT  +";
  EXPECT_EQ(first + std::wstring(80 - first.size(), L' ') + L"SECOND PART",
            TicsPas(quillet.Get(), BagWith({L"blnKeyGetAll"}, L"GROWING").Object()));
  EXPECT_EQ(L"send GROWING\r\nsend GROWN\r\n", Journal());
}

TEST_F(Pages, AMessageMayReleaseTheObjectThatCollects) {
  auto quillet = CreateQuillet();
  _CQuillet* called = quillet.Get();
  Text text;
  EXPECT_EQ(S_OK, quillet->SendCommandGetAll(nullptr, text.Receive()));
  const OnceFromMessages message([&] {
    EXPECT_EQ(S_OK, quillet->StopLoop());
    quillet = {};
  });
  EXPECT_EQ(L"FIRST PART DAC:CONT  +", TicsPas(called, BagWith({L"blnKeyGetAll"}, L"GROWING").Object()));
}

}  // namespace
}  // namespace wendrill::com::testing
