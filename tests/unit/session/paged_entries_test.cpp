#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "session/quillet.h"
#include "support/raises.h"
#include "support/screen.h"
#include "support/test_world.h"

namespace wendrill::testing {
namespace {

class PagedEntries : public ::testing::Test {
 protected:
  // The display of three numbered pages that answers an entry.
  void ThreePagesAnswer(const std::u16string& entry) {
    world.On(entry, {.buffer = Screen({u"HEAD", u"A", u")>1/3"})});
    world.On(u"MD", {.buffer = Screen({u"HEAD", u"B", u")>2/3"})});
    world.On(u"MD", {.buffer = Screen({u"HEAD", u"C", u")>3/3"})});
  }
  const std::u16string threePages = Screen({u"HEAD", u"A", u"B", u"C", u")>3/3"});

  TestWorld world;
  CQuillet quillet{world.module};
};

using SendCommandGetAll = PagedEntries;

TEST_F(SendCommandGetAll, ClearsSendsAndFetchesEveryPage) {
  ThreePagesAnswer(u"AN15JUN");
  EXPECT_EQ(quillet.SendCommandGetAll(u"AN15JUN"), threePages);
  EXPECT_EQ(world.Journal(), "key 322, send AN15JUN, send MD, send MD");
  EXPECT_EQ(world.module.LastResponseObject, nullptr);
}

TEST_F(SendCommandGetAll, WithAnEmptyEntrySendsNothing) {
  const auto before = world.calls->Count();
  EXPECT_EQ(quillet.SendCommandGetAll(u""), u"");
  EXPECT_EQ(world.calls->Count(), before);
}

TEST_F(SendCommandGetAll, WhoseClearKeyIsRejectedRaises2525) {
  world.Refusing({kbClear});
  EXPECT_TRUE(Raises(2525, u"An error has occurred while communicating with Quillet.",
                     [&] { quillet.SendCommandGetAll(u"AN"); }));
  EXPECT_EQ(world.Journal(), "key 322");
}

TEST_F(SendCommandGetAll, CollectsContinuedPages) {
  world.On(u"AN", {.buffer = Screen({u"HEAD", u"A", u"MORE     "})});
  world.On(u"MD", {.buffer = Screen({u"HEAD", u"B", u"MORE     ", u""})});
  world.On(u"MD", {.buffer = Screen({u"HEAD", u"C"})});
  EXPECT_EQ(quillet.SendCommandGetAll(u"AN"), Screen({u"HEAD", u"A", u"HEAD", u"B", u"HEAD", u"C"}));
}

TEST_F(SendCommandGetAll, KnowsAPnrDisplayByItsResponseType) {
  world.On(u"RT", {.buffer = Screen({u"--- TC-BIZ RLP ---", u"RP/PARXX2100"}), .type = 22});
  EXPECT_EQ(quillet.SendCommandGetAll(u"RT"), Screen({u"RP/PARXX2100"}));
}

TEST_F(SendCommandGetAll, LooksForPf24InTheEntryThatBeganTheCollectionOnEveryPage) {
  world.On(u"XPF24", {.buffer = Screen({u"TITLE", u"A", u")>1/2"})});
  world.On(u"MD", {.buffer = Screen({u"OTHER TITLE", u"B", u")>2/2"})});
  EXPECT_EQ(quillet.SendCommandGetAll(u"XPF24"), Screen({u"A", u"B", u")>2/2"}));
}

TEST_F(SendCommandGetAll, WhoseResponseTypeDoesNotFitSixteenBitsRaises2525) {
  world.On(u"AN", {.buffer = u"A", .type = 40000});
  EXPECT_TRUE(Raises(2525, kCommunicationMessage, [&] { quillet.SendCommandGetAll(u"AN"); }));
}

// The page counter has 16 bits: a host that never comes to an end is given up after 32,767 pages.
TEST_F(SendCommandGetAll, GivesUpAfterTheLastPageThatSixteenBitsCount) {
  world.On(u"AN", {.buffer = u"A)>1/2"}).On(u"MD", {.buffer = u"A)>1/2"});
  EXPECT_TRUE(Raises(2525, kCommunicationMessage, [&] { quillet.SendCommandGetAll(u"AN"); }));
  EXPECT_EQ(world.JournalLines().size(), 2U + 32767U);
}

using SendCommandGetAllNoClear = PagedEntries;

TEST_F(SendCommandGetAllNoClear, DoesNotPressTheClearKey) {
  ThreePagesAnswer(u"AN");
  EXPECT_EQ(quillet.SendCommandGetAllNoClear(u"AN"), threePages);
  EXPECT_EQ(world.Journal(), "send AN, send MD, send MD");
}

TEST_F(SendCommandGetAllNoClear, HoldsTheAlarmLockOverAllPages) {
  ThreePagesAnswer(u"QE/1");
  EXPECT_EQ(quillet.SendCommandGetAllNoClear(u"QE/1"), threePages);
  EXPECT_EQ(world.Journal(), "alarm lock, send QE/1, send MD, send MD, alarm unlock");
}

TEST_F(SendCommandGetAllNoClear, WithAnEmptyEntrySendsNothing) {
  EXPECT_EQ(quillet.SendCommandGetAllNoClear(u""), u"");
  EXPECT_EQ(world.Journal(), "");
}

TEST_F(SendCommandGetAllNoClear, ThatFailsOnALaterPageRaises2525AndUnlocks) {
  ThreePagesAnswer(u"QE/1");
  world.During(u"Send", [&] {
    if (world.JournalLines().back() == "send MD") {
      throw ForeignError();
    }
  });
  EXPECT_TRUE(Raises(2525, kCommunicationMessage, [&] { quillet.SendCommandGetAllNoClear(u"QE/1"); }));
  EXPECT_EQ(world.Journal(), "alarm lock, send QE/1, send MD, alarm unlock");
}

using GetTotalHostResponse = PagedEntries;

TEST_F(GetTotalHostResponse, CollectsFromTheResponseOnTheScreen) {
  ThreePagesAnswer(u"AN");
  quillet.SendCommand(u"AN");
  world.ClearJournal();
  EXPECT_EQ(quillet.GetTotalHostResponse(), threePages);
  EXPECT_EQ(world.Journal(), "send MD, send MD");
  EXPECT_EQ(world.module.LastResponseObject, nullptr);
}

TEST_F(GetTotalHostResponse, TakesTheEntryOfTheResponseForTheFirstLineRule) {
  world.Show(u"HE4505", {.buffer = Screen({u"TITLE", u"A"})});
  EXPECT_EQ(quillet.GetTotalHostResponse(), Screen({u"A"}));
}

TEST_F(GetTotalHostResponse, WithoutAResponseRaises2545) {
  EXPECT_TRUE(Raises(2545, u"An error has occurred while communicating with Quillet.",
                     [&] { quillet.GetTotalHostResponse(); }));
}

using SendCommandCollectPages = PagedEntries;

TEST_F(SendCommandCollectPages, ReturnsThePagesCountedFromOne) {
  ThreePagesAnswer(u"QE/1");
  TextArray pages;
  EXPECT_EQ(quillet.SendCommandCollectPages(u"QE/1", pages), threePages);
  EXPECT_EQ(pages.lowerBound, 1);
  EXPECT_EQ(pages.items, (std::vector{Screen({u"HEAD", u"A", u")>1/3"}), Screen({u"HEAD", u"B", u")>2/3"}),
                                      Screen({u"HEAD", u"C", u")>3/3"})}));
  EXPECT_EQ(world.Journal(), "alarm lock, send QE/1, send MD, send MD, alarm unlock");
}

TEST_F(SendCommandCollectPages, OfOnePageReturnsThatPage) {
  world.On(u"AN", {.buffer = u"A"});
  TextArray pages = {.lowerBound = 3, .items = {u"OLD", u"OLDER"}};
  EXPECT_EQ(quillet.SendCommandCollectPages(u"AN", pages), u"A");
  EXPECT_EQ(pages, (TextArray{.lowerBound = 1, .items = {u"A"}}));
}

TEST_F(SendCommandCollectPages, WithAnEmptyEntryReturnsNoPage) {
  TextArray pages = {.lowerBound = 0, .items = {u"OLD"}};
  EXPECT_EQ(quillet.SendCommandCollectPages(u"", pages), u"");
  EXPECT_EQ(pages, (TextArray{.lowerBound = 1, .items = {}}));
  EXPECT_EQ(world.Journal(), "");
}

TEST_F(SendCommandCollectPages, ThatFailsRaises2557) {
  quillet.StopLoop();
  TextArray pages;
  EXPECT_TRUE(Raises(2557, u"An error has occurred while communicating with Quillet.",
                     [&] { quillet.SendCommandCollectPages(u"AN", pages); }));
}

class SendCommandLines : public PagedEntries {
 protected:
  SendCommandLines() {
    world.On(u"HE", {.buffer = Screen({u"ONE", u"TWO"})});
    world.On(u"MD", {.buffer = Screen({u"THREE", u"FOUR"})});
    world.On(u"MD", {.buffer = Screen({u"FIVE", u"  END OF DISPLAY"})});
  }
  const std::u16string all = Screen({u"ONE", u"TWO", u"THREE", u"FOUR", u"FIVE", u"  END OF DISPLAY"});
};

TEST_F(SendCommandLines, ReadsToTheEndOfTheDisplayWithoutClearOrLock) {
  EXPECT_EQ(quillet.SendCommandLines(u"HE", u"1", u"0"), all);
  EXPECT_EQ(world.Journal(), "send HE, send MD, send MD");
}

TEST_F(SendCommandLines, TakesAnEmptyOrNonNumericStartForLineOneAndAnEmptyOrZeroPageCountForAll) {
  EXPECT_EQ(quillet.SendCommandLines(u"HE", u"", u""), all);
}

TEST_F(SendCommandLines, TakesANonNumericStartForLineOne) {
  EXPECT_EQ(quillet.SendCommandLines(u"HE", u"X", u"X"), all);
}

TEST_F(SendCommandLines, TakesNegativeNumbersForNone) {
  EXPECT_EQ(quillet.SendCommandLines(u"HE", u"-2", u"-1"), all);
}

TEST_F(SendCommandLines, BeginsAtTheLineAskedFor) {
  EXPECT_EQ(quillet.SendCommandLines(u"HE", u"4", u""), Screen({u"FOUR", u"FIVE", u"  END OF DISPLAY"}));
}

TEST_F(SendCommandLines, AfterTheLastLineIsEmpty) {
  EXPECT_EQ(quillet.SendCommandLines(u"HE", u"7", u""), u"");
}

TEST_F(SendCommandLines, ReadsAsManyPagesAsAskedFor) {
  EXPECT_EQ(quillet.SendCommandLines(u"HE", u" 2 ", u" 2 "), Screen({u"TWO", u"THREE", u"FOUR"}));
  EXPECT_EQ(world.Journal(), "send HE, send MD");
}

TEST_F(SendCommandLines, ReadsOnePageWithoutPaging) {
  EXPECT_EQ(quillet.SendCommandLines(u"HE", u"1", u"1"), Screen({u"ONE", u"TWO"}));
  EXPECT_EQ(world.Journal(), "send HE");
}

TEST_F(SendCommandLines, EndsAtTheEndOfTheDisplayEvenIfMorePagesAreAskedFor) {
  EXPECT_EQ(quillet.SendCommandLines(u"HE", u"1", u"9"), all);
}

TEST_F(SendCommandLines, EndsAtAPageWhoseLastLineThatIsNotBlankIsAFullStopAlone) {
  world.On(u"GG", {.buffer = Screen({u"NO STOP.", u"A", u"", u" .", u""})});
  EXPECT_EQ(quillet.SendCommandLines(u"GG", u"", u""), Screen({u"NO STOP.", u"A", u"", u" .", u""}));
  EXPECT_EQ(world.Journal(), "send GG");
}

TEST_F(SendCommandLines, GoesOnAfterAFullStopThatIsNotTheLastLine) {
  world.On(u"GG", {.buffer = Screen({u".", u"A"})});
  EXPECT_EQ(quillet.SendCommandLines(u"GG", u"", u"2"), Screen({u".", u"A", u"THREE", u"FOUR"}));
}

TEST_F(SendCommandLines, EndsWhereTheHostShowsTheSamePageAgain) {
  world.On(u"GG", {.buffer = Screen({u"THREE", u"FOUR"})});
  EXPECT_EQ(quillet.SendCommandLines(u"GG", u"", u""), Screen({u"THREE", u"FOUR"}));
  EXPECT_EQ(world.Journal(), "send GG, send MD");
}

TEST_F(PagedEntries, LinesByNumberDropAFurtherPageThatOnlyRepeatsTheOneBefore) {
  world.On(u"GG", {.buffer = Screen({u"A"})}).On(u"MD", {.buffer = Screen({u"B"})});
  EXPECT_EQ(quillet.SendCommandLines(u"GG", u"", u""), Screen({u"A", u"B"}));
  EXPECT_EQ(world.Journal(), "send GG, send MD, send MD");
}

// The entry that asks for a page after the last one would be rejected, and the rejection would become text.
TEST_F(SendCommandLines, EndsAtEqualPageNumbers) {
  world.On(u"GG", {.buffer = Screen({u"A", u")>2/2"})});
  EXPECT_EQ(quillet.SendCommandLines(u"GG", u"", u""), Screen({u"A", u")>2/2"}));
  EXPECT_EQ(world.Journal(), "send GG");
}

TEST_F(SendCommandLines, EndsAtEqualPageNumbersOfTheWideMarker) {
  const std::u16string last = u">" + std::u16string(49, u' ') + u"PAGE  2/ 2";
  world.On(u"GG", {.buffer = Screen({u"A", last})});
  EXPECT_EQ(quillet.SendCommandLines(u"GG", u"", u"9"), Screen({u"A", last}));
  EXPECT_EQ(world.Journal(), "send GG");
}

TEST_F(SendCommandLines, GoesOnAfterPageNumbersThatDiffer) {
  world.On(u"GG", {.buffer = Screen({u"A", u")>1/2"})});
  EXPECT_EQ(quillet.SendCommandLines(u"GG", u"", u"2"), Screen({u"A", u")>1/2", u"THREE", u"FOUR"}));
  EXPECT_EQ(world.Journal(), "send GG, send MD");
}

TEST_F(SendCommandLines, CountsTheLinesOfATextWithLineBreaks) {
  world.On(u"GG", {.buffer = u"A\r\nB\r\nC\r\n."});
  EXPECT_EQ(quillet.SendCommandLines(u"GG", u"3", u""), u"C\r\n.");
}

TEST_F(SendCommandLines, WithAnEmptyEntrySendsNothing) {
  EXPECT_EQ(quillet.SendCommandLines(u"", u"1", u"1"), u"");
  EXPECT_EQ(world.Journal(), "");
}

TEST_F(SendCommandLines, WithANumberTooLargeRaises2600AndSendsNothing) {
  EXPECT_TRUE(Raises(2600, u"An error has occurred while communicating with Quillet.",
                     [&] { quillet.SendCommandLines(u"HE", u"1", u"9999999999"); }));
  EXPECT_EQ(world.Journal(), "");
}

}  // namespace
}  // namespace wendrill::testing
