#include "transcript/screens.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace wendrill::transcript {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ChangedRows, AreCountedFromOne) {
  EXPECT_THAT(ChangedRows({"one", "two", "three"}, {"one", "2", "three"}), ElementsAre(2));
  EXPECT_THAT(ChangedRows({"one"}, {"one"}), IsEmpty());
  EXPECT_THAT(ChangedRows({}, {}), IsEmpty());
}

TEST(ChangedRows, CountRowsThatCameAndRowsThatWent) {
  EXPECT_THAT(ChangedRows({"one"}, {"one", "two", "three"}), ElementsAre(2, 3));
  EXPECT_THAT(ChangedRows({"one", "two"}, {}), ElementsAre(1, 2));
}

TEST(ChangedRows, DoNotCountBlanksAtTheEnd) {
  EXPECT_THAT(ChangedRows({"one  ", "   "}, {"one"}), IsEmpty());
  EXPECT_THAT(ChangedRows({"one"}, {" one"}), ElementsAre(1));
}

TEST(RowList, JoinsNeighbours) {
  EXPECT_EQ(RowList({}), "");
  EXPECT_EQ(RowList({4}), "4");
  EXPECT_EQ(RowList({4, 5}), "4, 5");
  EXPECT_EQ(RowList({1, 3, 4, 5, 24}), "1, 3 to 5, 24");
}

TEST(RowAt, IsEmptyAfterTheLast) {
  EXPECT_EQ(RowAt({"one ", "two"}, 0), "one");
  EXPECT_EQ(RowAt({"one"}, 1), "");
}

TEST(Screens, OfASessionAreComparedWithItsOwnLastOne) {
  Screens screens;
  EXPECT_TRUE(screens.Show("A", 1, {"one"}).isFirst);
  EXPECT_TRUE(screens.Show("B", 2, {"two"}).isFirst);
  const ShownScreen shown = screens.Show("A", 3, {"two"});
  EXPECT_FALSE(shown.isFirst);
  EXPECT_THAT(shown.changed, ElementsAre(1));
}

TEST(Screens, ShownAgainAreThoseOfTheirEvent) {
  Screens screens;
  screens.Show("A", 1, {"one", "two"});
  screens.Show("A", 2, {"one", "three"});
  const auto shown = screens.ShowAgain("A", 3, 1);
  ASSERT_TRUE(shown);
  EXPECT_THAT(*shown->rows, ElementsAre("one", "two"));
  EXPECT_THAT(shown->changed, ElementsAre(2));
  EXPECT_THAT(screens.ShowAgain("A", 4, 3)->changed, IsEmpty());
}

TEST(Screens, ShownAgainMayBeTheFirstOfAnotherSession) {
  Screens screens;
  screens.Show("A", 1, {"one"});
  EXPECT_TRUE(screens.ShowAgain("B", 2, 1)->isFirst);
}

TEST(Screens, OfAnEventThatIsNotThereChangeNothing) {
  Screens screens;
  screens.Show("A", 1, {"one"});
  screens.Show("A", std::nullopt, {"two"});  // an event without a number cannot be named
  EXPECT_FALSE(screens.ShowAgain("A", 3, 2));
  EXPECT_THAT(screens.Show("A", 4, {"two"}).changed, IsEmpty());
}

}  // namespace
}  // namespace wendrill::transcript
