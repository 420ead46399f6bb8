// QuilletSimulator.Expect as a C++ client uses it: a failure is a record, never a failing status.
#include "desktop_fixture.h"
#include "late_calls.h"

namespace wendrill::com::testing {
namespace {

class Expectations : public Desktop {
 protected:
  Reference<_Expect> expect = Create<_Expect>(CLSID_Expect);

  void TearDown() override {
    expect = {};
    Desktop::TearDown();
  }

  LONG Failed() {
    LONG failed = -1;
    EXPECT_EQ(S_OK, expect->get_Failed(&failed));
    return failed;
  }

  // The last of the failures; the records of other tests in this process are before it.
  std::wstring LastFailure() {
    OwnedVariant failures;
    EXPECT_EQ(S_OK, expect->get_Failures(&failures));
    EXPECT_EQ(static_cast<VARTYPE>(VT_ARRAY | VT_VARIANT), V_VT(&failures));
    LONG last = -1;
    OwnedVariant text;
    SafeArrayGetUBound(V_ARRAY(&failures), 1, &last);
    SafeArrayGetElement(V_ARRAY(&failures), &last, &text);
    return V_VT(&text) == VT_BSTR ? V_BSTR(&text) : L"";
  }
};

TEST_F(Expectations, AFailureIsARecordAndNoFailingStatus) {
  const LONG before = Failed();
  const Text got(L"PARXX0100");
  const Text expected(L"NCEYY2100");
  EXPECT_EQ(S_OK, expect->Equal(Text(L"office"), String(got), String(expected)));
  EXPECT_EQ(before + 1, Failed());
  EXPECT_EQ(LR"(expectation "office" failed: got "PARXX0100", expected "NCEYY2100" (first difference: character 1))",
            LastFailure());
}

TEST_F(Expectations, TheRecordsAreThoseOfTheSimulationNotOfTheObject) {
  const auto other = Create<_Expect>(CLSID_Expect);
  const LONG before = Failed();
  EXPECT_EQ(S_OK, other->Fails(Text(L"refused"), 0, 2505));
  EXPECT_EQ(before + 1, Failed());
  EXPECT_EQ(LR"(expectation "refused" failed: got no error, expected error 2505)", LastFailure());
}

TEST_F(Expectations, WhatHoldsLeavesNoFailure) {
  const LONG before = Failed();
  EXPECT_EQ(S_OK, expect->Equal(Text(L"27"), Number(27), Real(27)));
  EXPECT_EQ(S_OK, expect->Fails(Text(L"2505"), 2505, 2505));
  EXPECT_EQ(S_OK, expect->NotSent(Text(L"NEVER")));
  EXPECT_EQ(before, Failed());
}

TEST_F(Expectations, AnEntryIsCountedAsOftenAsItWasSent) {
  const auto quillet = CreateQuillet();
  Journal();
  OwnedVariant result;
  const Text entry(L"AN15JUNPARLON");
  ASSERT_EQ(S_OK, Invoke(quillet.Get(), L"SendCommandNoClear", {String(entry)}, &result));
  const LONG before = Failed();
  EXPECT_EQ(S_OK, expect->Sent(entry, Omitted()));
  EXPECT_EQ(S_OK, expect->Sent(entry, Number(1)));
  EXPECT_EQ(before, Failed());
  EXPECT_EQ(S_OK, expect->Sent(entry, Number(2)));
  EXPECT_EQ(LR"(expectation "Sent AN15JUNPARLON" failed: sent 1 time, expected 2 times)", LastFailure());
}

TEST_F(Expectations, AnUnusableResultPointerIsRejected) {
  EXPECT_EQ(E_POINTER, expect->get_Failed(nullptr));
  EXPECT_EQ(E_POINTER, expect->get_Failures(nullptr));
}

}  // namespace
}  // namespace wendrill::com::testing
