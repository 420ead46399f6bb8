#include "core/expectations.h"

#include <gtest/gtest.h>

#include "common/error.h"
#include "simulated_world.h"

namespace wendrill::simulator {
namespace {

class ExpectationsTest : public SimulatedWorld {
 protected:
  Expectations expect;
  const TextForms& forms = UsTextForms();

  std::u16string LastFailure() const { return expect.All().back().failure; }

  std::int32_t NumberRaisedBy(const std::function<void()>& call) {
    try {
      call();
    } catch (const Error& error) {
      return error.Number();
    }
    return 0;
  }
};

TEST_F(ExpectationsTest, EqualStringsHoldAndDifferentOnesTellTheFirstDifference) {
  expect.Equal(u"office", u"PARXX0100", u"PARXX0100", forms);
  EXPECT_EQ(LastFailure(), u"");
  expect.Equal(u"office", u"PARXX0100", u"PARYY0100", forms);
  EXPECT_EQ(LastFailure(), u"got \"PARXX0100\", expected \"PARYY0100\" (first difference: character 4)");
  expect.Equal(u"office", u"PARXX01", u"PARXX0100", forms);
  EXPECT_EQ(LastFailure(), u"got \"PARXX01\", expected \"PARXX0100\" (first difference: character 8)");
}

TEST_F(ExpectationsTest, NumbersAreComparedByValueButNeverWithStrings) {
  expect.Equal(u"n", std::int16_t{27}, 27.0, forms);
  EXPECT_EQ(LastFailure(), u"");
  expect.Equal(u"n", std::int32_t{27}, u"27", forms);
  EXPECT_EQ(LastFailure(), u"got 27, expected \"27\"");
}

TEST_F(ExpectationsTest, EmptyNullAndNothingDiffer) {
  expect.Equal(u"n", Value(), u"", forms);
  EXPECT_EQ(LastFailure(), u"got Empty, expected \"\"");
  expect.Equal(u"n", Null{}, ObjectRef{}, forms);
  EXPECT_EQ(LastFailure(), u"got Null, expected Nothing");
}

TEST_F(ExpectationsTest, ArraysAreComparedByElementsWhateverTheirBounds) {
  expect.Equal(u"a", TextArray{1, {u"A", u"B"}}, ValueArray{0, {u"A", u"B"}}, forms);
  EXPECT_EQ(LastFailure(), u"");
  expect.Equal(u"a", TextArray{0, {u"A"}}, TextArray{0, {u"A", u"B"}}, forms);
  EXPECT_EQ(LastFailure(), u"got [\"A\"], expected [\"A\", \"B\"]");
}

TEST_F(ExpectationsTest, ALineBreakStaysOnOneLine) {
  expect.Equal(u"a", u"one\r\ntwo", u"one", forms);
  EXPECT_EQ(LastFailure(), u"got \"one\\r\\ntwo\", expected \"one\" (first difference: character 4)");
}

TEST_F(ExpectationsTest, AnEntryIsExpectedExactlyThatOften) {
  const std::vector<std::u16string> sent{u"JI", u"AN", u"JI"};
  expect.Sent(u"JI", 2, sent);
  EXPECT_EQ(LastFailure(), u"");
  expect.Sent(u"JI", 1, sent);
  EXPECT_EQ(LastFailure(), u"sent 2 times, expected 1 time");
  expect.Sent(u"JI", 0, sent);
  EXPECT_EQ(FailureText(expect.All().back()), u"expectation \"NotSent JI\" failed: sent 2 times, expected never");
  EXPECT_EQ(NumberRaisedBy([&] { expect.Sent(u"JI", -1, sent); }), 5);
}

TEST_F(ExpectationsTest, EntriesInOrderMayHaveOthersBetweenThem) {
  const std::vector<std::u16string> sent{u"A", u"B", u"C"};
  expect.InOrder(TextArray{0, {u"A", u"C"}}, sent, forms);
  EXPECT_EQ(LastFailure(), u"");
  expect.InOrder(TextArray{0, {u"C", u"A"}}, sent, forms);
  EXPECT_EQ(LastFailure(), u"\"A\" was not sent after \"C\"");
  EXPECT_EQ(NumberRaisedBy([&] { expect.InOrder(u"A", sent, forms); }), 13);
  EXPECT_EQ(NumberRaisedBy([&] { expect.InOrder(TextArray{}, sent, forms); }), 5);
}

TEST_F(ExpectationsTest, FailuresAreCountedAndListedInOrderAndTold) {
  std::vector<std::u16string> told;
  expect.OnRecorded([&](const Expectation& one) { told.push_back(one.name); });
  expect.Fails(u"first", 2505, 0);
  expect.Holds(u"second", true, forms);
  expect.Holds(u"third", u"yes", forms);
  EXPECT_EQ(expect.Failed(), 2);
  EXPECT_EQ(expect.Failures(), (TextArray{0,
                                          {u"expectation \"first\" failed: got error 2505, expected no error",
                                           u"expectation \"third\" failed: got \"yes\", expected True"}}));
  EXPECT_EQ(told, (std::vector<std::u16string>{u"first", u"second", u"third"}));
}

TEST_F(ExpectationsTest, TheJournalListsWhatWasTransmittedUntilItIsCleared) {
  world.LoadText(u"[[session]]\nname = \"A\"\n\n[[reply]]\nstarts = \"\"\nscreen = \"OK\"\n");
  const auto session = world.MakeSession();
  session->Send(u"JI", true);
  session->Send(u"TYPED", false);
  EXPECT_EQ(world.Record().Sent(), (std::vector<std::u16string>{u"JI"}));
  world.ClearJournal();
  EXPECT_TRUE(world.Record().Sent().empty());
}

TEST_F(ExpectationsTest, TheWatcherMeetsEveryCallBeforeItDoesAnything) {
  world.LoadText(u"[[session]]\nname = \"A\"\n");
  const auto session = world.MakeSession();
  std::vector<std::u16string> calls;
  world.Watch([&](std::u16string_view operation, std::u16string_view argument) {
    calls.push_back(std::u16string(operation) + u"|" + std::u16string(argument));
    Fail(-2147467260, u"no end");
  });
  const std::int64_t before = world.Calls();
  EXPECT_EQ(NumberRaisedBy([&] { session->SendKey(353); }), -2147467260);
  EXPECT_EQ(NumberRaisedBy([&] { session->Send(u"JI", true); }), -2147467260);
  EXPECT_EQ(calls, (std::vector<std::u16string>{u"SendKey|353", u"Send|JI"}));
  EXPECT_EQ(world.Calls(), before);
  world.Watch({});
}

}  // namespace
}  // namespace wendrill::simulator
