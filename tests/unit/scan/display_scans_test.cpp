#include <gtest/gtest.h>

#include <new>

#include "support/kind_references.h"
#include "support/us_text.h"
#include "unit/scan/scan_desk.h"

namespace wendrill::testing {

namespace {

class EveryKind : public ::testing::TestWithParam<const DisplayKind*> {
 protected:
  const DisplayKind& kind = *GetParam();
  ScanDesk desk;
};

TEST_P(EveryKind, PnrWithoutLinesOfTheKindYieldsZeroAndArraysThatHoldIndexZeroAlone) {
  for (const auto& display :
       {std::u16string(), Lines({u"HEADER", u"1.SMITH/JOHN MR"}), Rows({u"HEADER", u"1.SMITH/JOHN MR"})}) {
    EXPECT_EQ(desk.Count(kind, display), 0);
    EXPECT_TRUE(desk.HoldsNothing(kind));
  }
}

TEST_P(EveryKind, HasNoArraysBeforeItsFirstScan) {
  EXPECT_EQ(desk.scans.Arrays(kind).UpperBound(), -1);
  EXPECT_TRUE(RaisesNumber(9, [&] { desk.scans.Arrays(kind).At(0, 0); }));
}

INSTANTIATE_TEST_SUITE_P(Kinds, EveryKind, ::testing::ValuesIn(kDisplayKinds),
                         [](const auto& row) { return std::string(row.param->Name()); });

TEST(DisplayScansTest, EveryScanReplacesWhatTheLastOneStored) {
  ScanDesk desk;
  constexpr const DisplayKind& kKind = kMCOElements;
  EXPECT_EQ(desk.Count(kKind, Lines({u"5 MCO SK", u"6 MCO LH", u"7 MCO AF"})), 3);
  EXPECT_EQ(desk.Count(kKind, Lines({u"8 MCO TP"})), 1);
  EXPECT_EQ(desk.scans.Arrays(kKind).UpperBound(), 1);
  EXPECT_EQ(desk.Stored(kKind, u"strKeyAirline", 1), u"TP");
}

TEST(DisplayScansTest, KindsKeepTheirArraysApart) {
  ScanDesk desk;
  const std::u16string display = Lines({u"HEADER", u"5 MCO SK", u"6 FHE PAX 117-1"});
  EXPECT_EQ(desk.Count(kMCOElements, display), 1);
  EXPECT_EQ(desk.Count(kManualTktElements, display), 1);
  EXPECT_EQ(desk.Stored(kMCOElements, u"strKeyElementNr", 1), u"5");
  EXPECT_EQ(desk.Stored(kManualTktElements, u"strKeyElementNr", 0), u"6");
}

// How often the display is read: three lines of 80 columns that no kind knows.
struct ReadsCase {
  const DisplayKind* kind;
  std::size_t reads;
};

TEST(DisplayScansTest, DisplayIsReadOnceAScanButForTheTwoKindsThatReadItAgain) {
  constexpr ReadsCase kReads[] = {
      {&kSpecialServiceElements, 1},
      {&kOtherServiceElements, 3},  // rows two and three, and the end
      {&kSecurityElements, 1},
      {&kManualTktElements, 1},
      {&kMiscTktInfoElements, 1},
      {&kSURElements, 0},
      {&kSPElements, 4},  // three lines and the empty one after them
      {&kATXSegments, 1},
      {&kMCOElements, 1},
  };
  for (const auto& [kind, reads] : kReads) {
    ScanDesk desk;
    desk.Count(*kind, Rows({u"HEADER", u"TEXT", u"TEXT"}));
    EXPECT_EQ(desk.pnr.Reads(), reads) << kind->Name();
    desk.scans.Count(*kind);
    EXPECT_EQ(desk.pnr.Reads(), 2 * reads) << "nothing is kept between two scans";
  }
}

struct TrapCase {
  const DisplayKind* kind;
  std::int32_t number;
};

constexpr TrapCase kTraps[] = {
    {&kManualTktElements, 2020},    {&kMiscTktInfoElements, 2025},
    {&kOtherServiceElements, 2030}, {&kSpecialServiceElements, 2035},
    {&kSecurityElements, 2035},     {&kSPElements, 2056},
    {&kMCOElements, 2057},
};

class Trapped : public ::testing::TestWithParam<TrapCase> {
 protected:
  // A PNR whose display cannot be read.
  void FailWith(const Error& error) {
    const auto pnr = FakeObject::Make(desk.calls, "PNR");
    pnr->Failing(75, error);
    desk.module.gobjPNR = pnr;
  }

  TestWorld desk;
  DisplayScans scans{desk.module};
};

TEST_P(Trapped, RaisesItsOwnNumberWithoutAPnr) {
  EXPECT_TRUE(Raises(GetParam().number, kElementMessage, [&] { scans.Count(*GetParam().kind); }));
}

TEST_P(Trapped, RaisesItsOwnNumberWhenTheToolkitFails) {
  FailWith(ForeignError());
  EXPECT_TRUE(Raises(GetParam().number, kElementMessage, [&] { scans.Count(*GetParam().kind); }));
}

TEST_P(Trapped, PassesOverflowOn) {
  FailWith(Error(6, u"szuPNR", u"Overflow of the toolkit"));
  const auto error = ErrorOf([&] { scans.Count(*GetParam().kind); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Number(), 6);
  EXPECT_EQ(error->Source(), u"szuPNR");
}

TEST_P(Trapped, LetsTheLackOfMemoryPropagate) {
  const auto pnr = FakeObject::Make(desk.calls, "PNR");
  pnr->Answering(75, [](std::span<const Value>) -> Value { throw std::bad_alloc(); });
  desk.module.gobjPNR = pnr;
  EXPECT_THROW(scans.Count(*GetParam().kind), std::bad_alloc);
}

INSTANTIATE_TEST_SUITE_P(Kinds, Trapped, ::testing::ValuesIn(kTraps),
                         [](const auto& row) { return std::string(row.param.kind->Name()); });

class Untrapped : public ::testing::TestWithParam<const DisplayKind*> {};

TEST_P(Untrapped, PropagatesEveryErrorUnchanged) {
  TestWorld desk;
  DisplayScans scans(desk.module);
  EXPECT_TRUE(RaisesNumber(91, [&] { scans.Count(*GetParam()); })) << "without a PNR";
  const auto pnr = FakeObject::Make(desk.calls, "PNR");
  pnr->Failing(75).Failing(3);
  desk.module.gobjPNR = pnr;
  const auto error = ErrorOf([&] { scans.Count(*GetParam()); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Number(), ForeignError().Number());
  EXPECT_EQ(error->Source(), ForeignError().Source());
  EXPECT_EQ(error->Description(), ForeignError().Description());
}

INSTANTIATE_TEST_SUITE_P(Kinds, Untrapped, ::testing::Values(&kSURElements, &kATXSegments),
                         [](const auto& row) { return std::string(row.param->Name()); });

TEST(DisplayScansTest, ArraysKeepWhatWasStoredBeforeAFailure) {
  TestWorld desk;
  const auto pnr = FakeObject::Make(desk.calls, "PNR");
  pnr->With(75, Lines({u"* SP-ABC123", u"* SP-DEF456"}));
  desk.module.gobjPNR = pnr;
  DisplayScans scans(desk.module);
  desk.calls->FailNth(2);
  EXPECT_TRUE(Raises(2056, kElementMessage, [&] { scans.Count(kSPElements); }));
  EXPECT_EQ(scans.Arrays(kSPElements).UpperBound(), 1);
  EXPECT_EQ(ToUsText(scans.Arrays(kSPElements).At(1, 1)), u"ABC123");
}

// Foreign calls may pump messages, and a message may count again.
TEST(DisplayScansTest, ScanThatRunsInsideAnotherOfItsKindLeavesTheOuterOneWhole) {
  for (const DisplayKind* kind : {&kSPElements, &kOtherServiceElements, &kSURElements}) {
    SCOPED_TRACE(kind->Name());
    TestWorld desk;
    DisplayScans scans(desk.module);
    int calls = 0;
    int inner = 0;
    const auto countAgain = [&](Value answer) {
      if (++calls % 2 == 0 && inner == 0) {
        ++inner;
        scans.Count(*kind);
        --inner;
      }
      return answer;
    };
    const auto element = FakeObject::Make(desk.calls, "element");
    element->With(u"Text", u"SUR/1030/A/PARIS/RUE");
    element->Answering(u"ElementNo", [&](auto) { return countAgain(u"4"); });
    const auto pnr = FakeObject::Make(desk.calls, "PNR");
    pnr->Answering(75, [&](auto) {
      return countAgain(Rows({u"* SP-ABC123", u"* SP-DEF456", u" 12 OSI SK VIP", u" 13 OSI SK CHD"}));
    });
    pnr->With(3, ObjectRef(FakeCollection(desk.calls, "elements", {element, element})));
    desk.module.gobjPNR = pnr;
    EXPECT_EQ(scans.Count(*kind), 2);
    EXPECT_GE(calls, 4);
  }
}

// Every call of a scan over the element collection fails in turn.
TEST(DisplayScansTest, AnyFailingCallOfTheElementCollectionReachesTheCaller) {
  TestWorld desk;
  const auto element = FakeObject::Make(desk.calls, "element");
  element->With(u"Text", u"SUR/1030/A/PARIS/RUE").With(u"ElementNo", u"4");
  const auto pnr = FakeObject::Make(desk.calls, "PNR");
  pnr->With(3, ObjectRef(FakeCollection(desk.calls, "elements", {element})));
  desk.module.gobjPNR = pnr;
  DisplayScans scans(desk.module);
  scans.Count(kSURElements);
  const std::size_t calls = desk.calls->Count();
  ASSERT_EQ(calls, 6u) << "collection, walk, next, text, number, next";
  for (std::size_t nth = 1; nth <= calls; ++nth) {
    desk.calls->FailNth(nth);
    EXPECT_TRUE(RaisesNumber(ForeignError().Number(), [&] { scans.Count(kSURElements); })) << nth;
  }
  desk.calls->FailNone();
  EXPECT_EQ(scans.Count(kSURElements), 1);
}

}  // namespace
}  // namespace wendrill::testing
