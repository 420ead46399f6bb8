// Callers that pass what no member expects, and messages that do in a wait what no caller should.
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <optional>

#include "batch/batch.h"
#include "batch/queue.h"
#include "common/error.h"
#include "pnr/pnr.h"
#include "pnr/records.h"
#include "scan/display_scans.h"
#include "scan/elements_by_kind.h"
#include "simulated_desktop.h"
#include "support/describe.h"

namespace wendrill::flow {
namespace {

// --- Indexes --------------------------------------------------------------------------------------------------------

// What an accessor of one element does with an index. Where it does not raise the member's own number, the generic
// access does: every failure of a kind that has a number becomes that number.
constexpr std::int32_t kFindsElement = 0;
constexpr std::int32_t kFindsNothing = -1;
constexpr std::int32_t kOwnNumber = -2;

struct IndexCase {
  IndexCase(Value hostile, std::int32_t met) : IndexCase(std::move(hostile), met, met, met) {}
  IndexCase(Value hostile, std::int32_t metBySegments, std::int32_t metByElements, std::int32_t metAsText)
      : index(std::move(hostile)), segments(metBySegments), elements(metByElements), asText(metAsText) {}

  Value index;
  // A run-time error's number, or one of the three above.
  std::int32_t segments;  // converted, then compared with the count
  std::int32_t elements;  // compared, then converted
  std::int32_t asText;    // compared, then converted via its string form: the display and the generic access
};

std::vector<IndexCase> IndexCases(simulator::World& world) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
  const auto object = [&] { return Value(ObjectRef(world.MakePnr())); };
  return {
      {Value(), kFindsElement, kFindsElement, 13},  // missing
      {u"0", kFindsElement},
      {u" 0 ", kFindsElement},
      {false, kFindsElement, kFindsElement, 13},
      {Date{0}, kFindsElement, kFindsElement, 13},
      {-0.4, kFindsElement},
      {true, kFindsNothing, kFindsNothing, 13},  // -1
      {std::int16_t{-32768}, kFindsNothing},
      {std::int16_t{32767}, kOwnNumber},
      {std::int32_t{32768}, 6, kOwnNumber, kOwnNumber},
      {std::numeric_limits<std::int32_t>::max(), 6, kOwnNumber, kOwnNumber},
      {1e300, 6, kOwnNumber, kOwnNumber},
      {kInfinity, 6, kOwnNumber, kOwnNumber},
      {kNoNumber, 6, kOwnNumber, kOwnNumber},
      {u"999999999999999999999999", 6, kOwnNumber, kOwnNumber},
      {std::numeric_limits<std::int32_t>::min(), 6},
      {std::int32_t{-32769}, 6},
      {-1e300, 6},
      {-kInfinity, 6, 6, 13},
      {Null(), 94},
      {u"", 13},
      {u"FIRST", 13},
      {std::u16string(u"0\0X", 3), kFindsElement},  // a number ends there, as the platform reads it
      {u"\xD800", 13},
      {TextArray{.lowerBound = 0, .items = {u"0"}}, 13},
      {ValueArray{.lowerBound = 1, .items = {}}, 13},
      {object(), 13},
      {ObjectRef(), 91},
  };
}

class HostileIndexes : public SimulatedDesktop {
 protected:
  void SetUp() override {
    LoadFile("rich_pnr");
    quillet.emplace(module);
    ASSERT_TRUE(quillet->RetrieveRecLoc(u"RCH001"));
  }

  void TearDown() override {
    quillet.reset();
    module.TextHelper.reset();
    EXPECT_EQ(world.LiveObjects(), 0);
  }

  std::shared_ptr<simulator::SimulatedBag> BagWith(const Value& index) {
    auto bag = world.MakeParamBag();
    if (!index.IsEmpty()) {
      bag->Set(u"intKeyIndex", index);
    }
    return bag;
  }

  std::optional<CQuillet> quillet;
};

struct IndexedMember {
  GetMember member;
  std::int32_t number;
};

// Every member of IGet that reads an index, but for the two that read the display.
constexpr IndexedMember kMembers[] = {
    {GetMember::ActiveAirSegments, 2205}, {GetMember::AirSegments, 2207},
    {GetMember::AllAirSegments, 2209},    {GetMember::BillingAddressElements, 2235},
    {GetMember::CarSegment, 2211},        {GetMember::ConfidentialRemarkElements, 2241},
    {GetMember::ContactElements, 2239},   {GetMember::FareCommissionElement, 2215},
    {GetMember::FlownAirSegments, 2217},  {GetMember::FormOfPaymentElement, 2219},
    {GetMember::HotelSegment, 2221},      {GetMember::MailingAddressElements, 2237},
    {GetMember::NameElement, 2223},       {GetMember::OpenAirSegments, 2225},
    {GetMember::OptionElements, 2237},    {GetMember::RemarkElement, 2229},
    {GetMember::TicketElement, 2231},
};

bool IsSegment(GetMember member) {
  switch (member) {
    case GetMember::ActiveAirSegments:
    case GetMember::AirSegments:
    case GetMember::AllAirSegments:
    case GetMember::FlownAirSegments:
    case GetMember::OpenAirSegments:
    case GetMember::CarSegment:
    case GetMember::HotelSegment:
      return true;
    default:
      return false;
  }
}

TEST_F(HostileIndexes, MeetAClearErrorOrTheRightElementInEveryAccessor) {
  PnrRecords records(module);
  for (const IndexedMember& row : kMembers) {
    for (const IndexCase& hostile : IndexCases(world)) {
      SCOPED_TRACE("member " + std::to_string(row.number) + ", index " + testing::Describe(hostile.index));
      const auto bag = BagWith(hostile.index);
      const auto error = ErrorOf([&] { records.Get(row.member, bag); });
      const std::int32_t meets = IsSegment(row.member) ? hostile.segments : hostile.elements;
      const std::int32_t expected = meets == kOwnNumber ? row.number : std::max(meets, 0);
      EXPECT_EQ(error ? error->Number() : 0, expected);
      EXPECT_TRUE(!error || !error->Description().empty());
      const bool stores = meets == kFindsElement || (meets == kFindsNothing && row.member == GetMember::CarSegment);
      EXPECT_EQ(bag->Count() > (hostile.index.IsEmpty() ? 0 : 1), stores);
    }
  }
}

// A negative index finds no place in the arrays of the members that read the display.
TEST_F(HostileIndexes, MeetAClearErrorOrTheRightElementInTheAccessorsOfTheDisplay) {
  struct IndexedFare {
    const DisplayKind* kind;
    std::int32_t number;
  };
  DisplayScans scans(module);
  for (const IndexedFare& row : {IndexedFare{&kValidatingAirlineElements, 2233}, {&kAirSequenceNrElements, 2213}}) {
    for (const IndexCase& hostile : IndexCases(world)) {
      SCOPED_TRACE("member " + std::to_string(row.number) + ", index " + testing::Describe(hostile.index));
      const auto error = ErrorOf([&] { scans.Get(*row.kind, BagWith(hostile.index)); });
      const std::int32_t expected = hostile.asText == kOwnNumber      ? row.number
                                    : hostile.asText == kFindsNothing ? 9
                                                                      : hostile.asText;
      EXPECT_EQ(error ? error->Number() : 0, expected);
    }
  }
}

struct IndexedKind {
  std::u16string_view kind;
  std::int32_t number;
  bool isScanned;
};

constexpr IndexedKind kKinds[] = {{u"* SP", 2259, true}, {u"SUR", 2258, true},  {u"FH", 2245, true},
                                  {u"FS", 2251, true},   {u"OSI", 2249, true},  {u"SSR", 2247, true},
                                  {u"ES", 2253, true},   {u"MCO", 2260, true},  {u"FA", 2255, false},
                                  {u"FE", 2256, false},  {u"INS", 2261, false}, {u"HTL", 2261, false}};

// Whatever is wrong with the index, a kind has one number for it. A missing index has no text to convert by; a negative
// one finds no place in arrays and no element in a collection.
TEST_F(HostileIndexes, MeetTheNumberOfTheKindInTheGenericAccess) {
  CPNR pnr(module);
  DisplayScans scans(module);
  PnrElements elements(module, pnr, scans);
  for (const IndexedKind& row : kKinds) {
    for (const IndexCase& hostile : IndexCases(world)) {
      SCOPED_TRACE(ToUtf8(row.kind) + ", index " + testing::Describe(hostile.index));
      const auto bag = BagWith(hostile.index);
      bag->Set(u"strKeyPNRElement", row.kind);
      const auto error = ErrorOf([&] { elements.Elements(bag); });
      const bool isRight = hostile.asText == kFindsElement || (hostile.asText == kFindsNothing && !row.isScanned);
      const std::int32_t expected = isRight ? 0 : row.number;
      EXPECT_EQ(error ? error->Number() : 0, expected);
    }
  }
}

TEST_F(HostileIndexes, KindsThatAreNoTextAreNoKindOrMeetTheNumberOfTheAccess) {
  CPNR pnr(module);
  DisplayScans scans(module);
  PnrElements elements(module, pnr, scans);
  for (const IndexCase& hostile : IndexCases(world)) {
    SCOPED_TRACE(testing::Describe(hostile.index));
    const auto bag = world.MakeParamBag();
    bag->Set(u"strKeyPNRElement", hostile.index);
    const auto error = ErrorOf([&] { EXPECT_FALSE(elements.Elements(bag)); });
    const bool hasText = hostile.index.As<Null>() == nullptr && hostile.index.As<ObjectRef>() == nullptr &&
                         hostile.index.As<TextArray>() == nullptr && hostile.index.As<ValueArray>() == nullptr;
    EXPECT_EQ(error ? error->Number() : 0, hasText ? 0 : 2252);
  }
}

TEST_F(HostileIndexes, ListsOfPrefixesThatAreNoneMeetTheNumberOfTheAccess) {
  CPNR pnr(module);
  DisplayScans scans(module);
  PnrElements elements(module, pnr, scans);
  for (const IndexCase& hostile : IndexCases(world)) {
    SCOPED_TRACE(testing::Describe(hostile.index));
    const auto bag = world.MakeParamBag();
    bag->Set(u"strKeyPNRElement", u"ALL");
    bag->Set(u"strKeyFind()", hostile.index);
    const auto error = ErrorOf([&] { elements.Elements(bag); });
    const bool isList = hostile.index.As<TextArray>() != nullptr || hostile.index.As<ValueArray>() != nullptr;
    EXPECT_EQ(error ? error->Number() : 0, isList ? 0 : 2252);
  }
}

TEST_F(HostileIndexes, MissTheEntriesOfAQueue) {
  CQueue queue(module);
  queue.Add(u"JD", u"0");
  for (const IndexCase& hostile : IndexCases(world)) {
    SCOPED_TRACE(testing::Describe(hostile.index));
    const bool isKey = hostile.index == Value(u"0");
    const auto error = ErrorOf([&] { queue.Item(hostile.index); });
    EXPECT_EQ(error.has_value(), !isKey);
    if (error) {
      EXPECT_TRUE(error->Number() == 5 || error->Number() == 6 || error->Number() == 13 || error->Number() == 91 ||
                  error->Number() == 94)
          << error->Number();
    }
    if (!isKey) {
      EXPECT_TRUE(ErrorOf([&] { queue.Remove(hostile.index); }));
    }
    EXPECT_EQ(queue.Count(), 1);
  }
}

TEST_F(HostileIndexes, LinesOutsideTheBufferMeetTheToolkitsError) {
  quillet->SendCommand(u"RT");
  for (const std::int16_t line : {std::int16_t{0}, std::int16_t{-1}, std::int16_t{32767}, std::int16_t{-32768}}) {
    EXPECT_TRUE(RaisesNumber(9, [&] { quillet->GetLineFromLastBuffer(line); })) << line;
  }
}

// --- Texts ----------------------------------------------------------------------------------------------------------

constexpr std::size_t kMillion = 1'000'000;

class HostileTexts : public SimulatedDesktop {
 protected:
  void SetUp() override {
    LoadText(u"session = [{ name = 'A' }]\n[unknown]\nscreen = '*T*'\n");
    quillet.emplace(module);
  }

  // Each reaches the terminal and comes back as it was given.
  const std::vector<std::u16string> texts = {
      std::u16string(kMillion, u'X'),         std::u16string(kMillion, kBlank),
      std::u16string(u"A\0B\0", 4),           std::u16string(1, u'\0'),
      std::u16string{u'A', 0xD800, u'B'},     std::u16string{0xDC00, 0xD800},
      std::u16string{0xFFFF, 0xFFFE, 0xFEFF}, u"\r\n\t\v",
      std::u16string(kMillion, u';'),         std::u16string(kMillion / 2, u'\u00A4'),
  };

  std::optional<CQuillet> quillet;
};

TEST_F(HostileTexts, AreSentAndReadBackAsTheyAre) {
  for (const std::u16string& text : texts) {
    EXPECT_EQ(quillet->SendCommand(text), Row(u"*T*"));
    EXPECT_TRUE(quillet->LastHostCommand() == text);
    EXPECT_EQ(quillet->SendCommandNoTransmit(text), u"");
    EXPECT_EQ(quillet->SendCommandNoClear(text), Row(u"*T*"));
    EXPECT_EQ(quillet->SendCommandGetAll(text), Row(u"*T*"));
    EXPECT_EQ(quillet->SendCommandLines(text, text, text), Row(u"*T*"));
    quillet->SetCommand(text);
    EXPECT_TRUE(quillet->Command() == text);
  }
}

TEST_F(HostileTexts, NameNoSessionAndNoPnr) {
  for (const std::u16string& text : texts) {
    EXPECT_FALSE(quillet->RetrieveRecLoc(text));
    EXPECT_FALSE(quillet->SplitPNR(text));
    EXPECT_FALSE(quillet->ReadPNR(text));
    EXPECT_TRUE(Raises(2535, testing::kConnectMessage, [&] { quillet->ConnectSession(text); }));
    quillet->ConnectSession(u"A");
  }
}

TEST_F(HostileTexts, AreKeysOfAQueueLikeOthers) {
  CQueue queue(module);
  for (const std::u16string& text : texts) {
    queue.Add(text, text);
    EXPECT_TRUE(queue.Item(text)->Command() == text);
    EXPECT_TRUE(RaisesNumber(2400, [&] { queue.Add(u"JD", text); }));
  }
  EXPECT_EQ(queue.Count(), static_cast<std::int32_t>(texts.size()));
}

TEST_F(HostileTexts, AreCutIntoRemarksOfTheHostsLength) {
  CBatch batch(module);
  for (const std::u16string& text : texts) {
    TextArray elements;
    batch.RMBatch(text, elements);
    std::size_t kept = 0;
    for (const std::u16string& element : elements.items) {
      EXPECT_LE(element.size(), 125U);
      EXPECT_TRUE(StartsWith(element, u"RM"));
      kept += element.size() - 2;
    }
    const bool dropsBlanks = text.front() == kBlank;
    EXPECT_TRUE(dropsBlanks ? kept <= text.size() : kept == text.size());
  }
}

TEST_F(HostileTexts, AreSentByABatch) {
  for (const std::u16string& text : texts) {
    CBatch batch(module);
    batch.Commands()->Add(text);
    const auto bag = world.MakeParamBag();
    batch.SubmitWithResponse(bag);
    EXPECT_EQ(bag->Get(u"blnKeyResponseOK"), Value(true));
    batch.SetSeparator(text);
    batch.SubmitWithResponse(bag);
    EXPECT_EQ(bag->Get(u"blnKeyResponseOK"), Value(true));
  }
}

TEST_F(HostileTexts, OfMoreEntriesThanCanBeCountedRaiseTheNumberOfTheSubmission) {
  CBatch batch(module);
  std::u16string entries;
  for (int entry = 0; entry < 40'000; ++entry) {
    entries += u"JD;";
  }
  batch.Commands()->Add(entries);
  EXPECT_TRUE(Raises(2300, testing::kGeneralMessage, [&] { batch.Submit(); }));
  EXPECT_EQ(NewJournal(), "");
}

// --- Messages in a wait ---------------------------------------------------------------------------------------------

class MessagesInAWait : public SimulatedDesktop {
 protected:
  void SetUp() override {
    LoadText(
        uR"toml(
session = [{ name = "A" }, { name = "B" }]
reply = [
  { entry = "LATE", screen = "AT LAST", late = 3 },
  { entry = "ER", screen = "STORED", late = 3 },
  { starts = "", screen = "DONE" },
]
)toml");
    world.Time().SetStep(std::chrono::seconds(1));
    quillet.emplace(module);
    other.emplace(module);
  }

  void TearDown() override {
    world.Pump().OnRun({});
    other.reset();
    quillet.reset();
    module.TextHelper.reset();
    EXPECT_EQ(world.LiveObjects(), 0);
  }

  // In the first message of the wait, and in no other.
  void InTheWait(std::function<void()> act) {
    world.Pump().OnRun([act = std::move(act), done = false]() mutable {
      if (!std::exchange(done, true)) {
        act();
      }
    });
  }

  std::optional<CQuillet> quillet;
  std::optional<CQuillet> other;
};

// The response in progress is one for the process: the entry in the message takes it, and lets it go.
TEST_F(MessagesInAWait, AnotherEntryTakesTheResponseInProgress) {
  InTheWait([&] { EXPECT_EQ(other->SendCommand(u"JD"), Row(u"DONE")); });
  EXPECT_TRUE(Raises(2530, testing::kCommunicationMessage, [&] { quillet->SendCommandNoClear(u"LATE"); }));
  EXPECT_EQ(quillet->SendCommandNoClear(u"LATE"), Row(u"AT LAST"));
}

TEST_F(MessagesInAWait, AnotherEntryOfTheSameObjectTakesItToo) {
  InTheWait([&] { EXPECT_EQ(quillet->SendCommandNoClear(u"LATE"), Row(u"AT LAST")); });
  EXPECT_TRUE(Raises(2530, testing::kCommunicationMessage, [&] { quillet->SendCommandNoClear(u"LATE"); }));
  EXPECT_EQ(quillet->SendCommandNoClear(u"LATE"), Row(u"AT LAST"));
}

TEST_F(MessagesInAWait, StopLoopEndsTheWait) {
  InTheWait([&] { quillet->StopLoop(); });
  EXPECT_TRUE(Raises(2530, testing::kCommunicationMessage, [&] { quillet->SendCommandNoClear(u"LATE"); }));
  quillet->ConnectSession(u"A");
  EXPECT_EQ(quillet->SendCommandNoClear(u"LATE"), Row(u"AT LAST"));
}

TEST_F(MessagesInAWait, ASwitchOfTheSessionLeavesTheResponseAlone) {
  InTheWait([&] { quillet->ConnectSession(u"B"); });
  EXPECT_EQ(quillet->SendCommandNoClear(u"LATE"), Row(u"AT LAST"));
}

TEST_F(MessagesInAWait, TheReleaseOfAnotherObjectLeavesTheResponseAlone) {
  InTheWait([&] { other.reset(); });
  EXPECT_EQ(quillet->SendCommandNoClear(u"LATE"), Row(u"AT LAST"));
}

TEST_F(MessagesInAWait, AnAlarmEntryWaitsUnderItsLockAndGivesItBack) {
  InTheWait([&] { quillet->StopLoop(); });
  EXPECT_TRUE(Raises(2530, testing::kCommunicationMessage, [&] { quillet->SendCommandNoClear(u"ER"); }));
  EXPECT_EQ(NewJournal(), "alarm lock; key 322; send ER; alarm unlock");
}

TEST_F(MessagesInAWait, StopLoopWhileTheModeIsSwitchedRaises2520) {
  InTheWait([&] { quillet->StopLoop(); });
  EXPECT_TRUE(Raises(2520, testing::kGeneralMessage, [&] { quillet->ChangeSMOD(5, 12); }));
}

}  // namespace
}  // namespace wendrill::flow
