// Displays that are longer than a screen.
#include <gtest/gtest.h>

#include "simulated_desktop.h"

namespace wendrill::flow {
namespace {

class Pages : public SimulatedDesktop {
 protected:
  void SetUp() override {
    LoadFile("paged_availability");
    quillet.emplace(module);
  }

  // Whether the text holds each of the lines once, in this order.
  static ::testing::AssertionResult HoldsOnceInOrder(std::u16string_view text,
                                                     const std::vector<std::u16string_view>& lines) {
    std::ptrdiff_t column = 1;
    for (const std::u16string_view line : lines) {
      const std::ptrdiff_t found = ColumnOf(text, line);
      if (found < column) {
        return ::testing::AssertionFailure() << "not in its place: " << ToUtf8(line) << "\n" << ToUtf8(text);
      }
      column = found + 1;
      if (ColumnOf(text, line, column) != 0) {
        return ::testing::AssertionFailure() << "twice: " << ToUtf8(line) << "\n" << ToUtf8(text);
      }
    }
    return ::testing::AssertionSuccess();
  }

  std::optional<CQuillet> quillet;
};

TEST_F(Pages, NumberedPagesAreFetchedAndJoined) {
  const std::u16string text = quillet->SendCommandGetAll(u"AN15JUNPARLON");
  EXPECT_EQ(NewJournal(), "key 322; send AN15JUNPARLON; send MD; send MD");
  EXPECT_TRUE(HoldsOnceInOrder(
      text, {u" 1  AF1570", u" 4  AF1680", u" 5  SK 616", u" 8  SK 620", u" 9  AF1980", u"12  AF2180"}));
  EXPECT_FALSE(Contains(text, u"PAGE  1/ 3"));
  EXPECT_FALSE(Contains(text, u"PAGE  2/ 3"));
}

TEST_F(Pages, PagesWithTheShortMarkerAreFetchedAndJoined) {
  const std::u16string text = quillet->SendCommandGetAll(u"TQN");
  EXPECT_EQ(NewJournal(), "key 322; send TQN; send MD");
  EXPECT_TRUE(HoldsOnceInOrder(text, {u"1 SMITH/JOHN MR", u"2 MARTIN/EVE MRS", u"3 MILLER/TOM", u"4 END OF QUEUE"}));
  EXPECT_FALSE(Contains(text, u")> 1/ 2"));
}

TEST_F(Pages, PagesWithTheContinuationMarkerAreFetchedAndJoined) {
  const std::u16string text = quillet->SendCommandGetAll(u"HEAN");
  EXPECT_EQ(NewJournal(), "key 322; send HEAN; send MD; send MD");
  EXPECT_TRUE(HoldsOnceInOrder(text, {u"HELP - AVAILABILITY", u"MD SHOWS THE NEXT PAGE.", u"SEE ALSO: HESS, HEMD"}));
  EXPECT_FALSE(Contains(text, u"MORE     "));
}

TEST_F(Pages, ThePagesAreHandedBackOneByOne) {
  TextArray pages;
  quillet->SendCommandCollectPages(u"AN15JUNPARLON", pages);
  EXPECT_EQ(pages.lowerBound, 1);
  ASSERT_EQ(pages.items.size(), 3u);
  EXPECT_TRUE(Contains(pages.items[0], u" 1  AF1570"));
  EXPECT_TRUE(Contains(pages.items[1], u" 5  SK 616"));
  EXPECT_TRUE(Contains(pages.items[2], u"12  AF2180"));
}

TEST_F(Pages, LinesAreReadUntilTheEndOfTheDisplay) {
  const std::u16string text = quillet->SendCommandLines(u"DO1", u"2", u"");
  EXPECT_TRUE(HoldsOnceInOrder(text, {u"CDG LHR 0715 0730", u"ON TIME", u"END OF DISPLAY"}));
  EXPECT_FALSE(Contains(text, u"FLIGHT AF1570"));
  EXPECT_EQ(NewJournal(), "send DO1; send MD");
}

TEST_F(Pages, AnEntryFromABagIsPagedWhileItsTailAsksForMore) {
  quillet->SendCommandGetAll(u"HEAN");  // sets the loop going
  NewJournal();
  const ParamBagRef bag = world.MakeParamBag();
  bag->Set(u"strKeyCommand", u"QT");
  bag->Set(u"blnKeyGetAll", true);
  const std::u16string text = quillet->SendCommandTicsPas(bag);
  EXPECT_TRUE(HoldsOnceInOrder(text, {u"QUEUE COUNT 1: 12", u"QUEUE COUNT 4: 1", u"END OF COUNT"}));
  EXPECT_EQ(NewJournal(), "send QT; key 322; send MD");
}

TEST_F(Pages, ADisplayOfOnePageComesAsItIs) {
  EXPECT_EQ(quillet->SendCommandGetAll(u"XX"), Row(u"ENTRY NOT UNDERSTOOD"));
  EXPECT_EQ(NewJournal(), "key 322; send XX (unanswered)");
}

}  // namespace
}  // namespace wendrill::flow
