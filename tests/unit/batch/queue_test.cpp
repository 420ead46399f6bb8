#include "batch/queue.h"

#include <gtest/gtest.h>

#include <limits>
#include <new>
#include <string>
#include <vector>

#include "support/describe.h"
#include "support/raises.h"
#include "support/test_world.h"

namespace wendrill::testing {
namespace {

class Queue : public ::testing::Test {
 protected:
  std::vector<std::u16string> Commands() const {
    std::vector<std::u16string> commands;
    for (const auto& quillet : queue.Entries()) {
      commands.push_back(quillet->Command());
    }
    return commands;
  }

  TestWorld world;
  CQueue queue{world.module};
};

TEST_F(Queue, KeepsEntriesInTheirOrderCountedFromOne) {
  EXPECT_EQ(queue.Count(), 0);
  EXPECT_EQ(queue.Add(u"AN15JUN")->Command(), u"AN15JUN");
  queue.Add(u"SS1Y1");
  EXPECT_EQ(queue.Count(), 2);
  EXPECT_EQ(queue.Item(std::int16_t{1})->Command(), u"AN15JUN");
  EXPECT_EQ(queue.Item(std::int32_t{2})->Command(), u"SS1Y1");
  EXPECT_EQ(Commands(), (std::vector<std::u16string>{u"AN15JUN", u"SS1Y1"}));
}

TEST_F(Queue, SendsNothing) {
  queue.Add(u"AN15JUN");
  EXPECT_EQ(world.Journal(), "");
}

TEST_F(Queue, ReturnsTheSameObjectEveryTime) {
  const auto added = queue.Add(u"AN", u"first");
  EXPECT_EQ(queue.Item(std::int16_t{1}), added);
  EXPECT_EQ(queue.Item(std::int16_t{1}), added);
  EXPECT_EQ(queue.Item(u"first"), added);
  EXPECT_EQ(queue.Entries().front(), added);
}

TEST_F(Queue, ComparesKeysWithoutCase) {
  queue.Add(u"AN", u"Avail");
  EXPECT_EQ(queue.Item(u"AVAIL")->Command(), u"AN");
  EXPECT_EQ(queue.Item(u"avail")->Command(), u"AN");
  EXPECT_TRUE(Raises(2400, u"A general error has occurred.", [&] { queue.Add(u"SS", u"aVAIL"); }));
}

TEST_F(Queue, ComparesLettersWithAccentsWithoutCase) {
  queue.Add(u"AN", u"\u00E9t\u00E9");
  EXPECT_EQ(queue.Item(u"\u00C9T\u00C9")->Command(), u"AN");
  EXPECT_TRUE(Raises(2400, u"A general error has occurred.", [&] { queue.Add(u"SS", u"\u00C9t\u00E9"); }));
  queue.Add(u"SS", u"ete");  // an accent makes another letter
  EXPECT_EQ(queue.Count(), 2);
}

TEST_F(Queue, ComparesGreekAndCyrillicLettersWithoutCase) {
  queue.Add(u"AN", u"\u03B1\u03CE");
  queue.Add(u"SS", u"\u0436\u0451");
  EXPECT_EQ(queue.Item(u"\u0391\u038F")->Command(), u"AN");
  EXPECT_EQ(queue.Item(u"\u0416\u0401")->Command(), u"SS");
}

TEST_F(Queue, AddOfAnEmptyEntryStoresAnObjectWithAnEmptyCommand) {
  EXPECT_EQ(queue.Add(u"")->Command(), u"");
  EXPECT_EQ(queue.Count(), 1);
}

TEST_F(Queue, KeyThatIsTheEmptyStringIsNoKeySoTwoSuchEntriesAreBothKept) {
  queue.Add(u"AN", u"");
  queue.Add(u"SS", u"");
  EXPECT_EQ(queue.Count(), 2);
  EXPECT_TRUE(RaisesNumber(5, [&] { queue.Item(u""); }));
}

TEST_F(Queue, AddWithAKeyThatIsPresentRaises2400AndAddsNothing) {
  queue.Add(u"AN", u"K");
  const auto live = world.module.LiveInstanceCount;
  EXPECT_TRUE(Raises(2400, u"A general error has occurred.", [&] { queue.Add(u"SS", u"K"); }));
  EXPECT_EQ(queue.Count(), 1);
  EXPECT_EQ(queue.Item(u"K")->Command(), u"AN");
  EXPECT_EQ(world.module.LiveInstanceCount, live);
}

TEST_F(Queue, AddWhileNoSessionRunsAndNoOtherObjectLivesRaises2400) {
  world.Sessions({});
  EXPECT_TRUE(Raises(2400, u"A general error has occurred.", [&] { queue.Add(u"AN"); }));
  EXPECT_EQ(queue.Count(), 0);
}

TEST_F(Queue, AddThatFailsInTheToolkitRaises2400AndHoldsNothing) {
  for (std::size_t n = 1; n <= 6; ++n) {
    const auto before = world.LiveObjects();
    world.calls->FailNth(n);
    EXPECT_TRUE(Raises(2400, kGeneralMessage, [&] { queue.Add(u"AN"); })) << "call " << n;
    EXPECT_EQ(world.LiveObjects(), before) << "call " << n;
    EXPECT_EQ(queue.Count(), 0) << "call " << n;
  }
}

TEST_F(Queue, AddForLackOfMemoryLetsThatPropagateAndHoldsNothing) {
  for (std::size_t n = 1; n <= 6; ++n) {
    const auto before = world.LiveObjects();
    world.calls->RunOutOfMemoryAtNth(n);
    EXPECT_THROW(queue.Add(u"AN"), std::bad_alloc) << "call " << n;
    EXPECT_EQ(world.LiveObjects(), before) << "call " << n;
    EXPECT_EQ(queue.Count(), 0) << "call " << n;
  }
}

TEST_F(Queue, AddBeyondTheSixteenBitCountOfLiveObjectsRaises2400) {
  world.module.LiveInstanceCount = std::numeric_limits<std::int16_t>::max();
  EXPECT_TRUE(Raises(2400, kGeneralMessage, [&] { queue.Add(u"AN"); }));
  world.module.LiveInstanceCount = 0;
}

TEST_F(Queue, EntriesTakePartInTheLiveCountAndTheSessionSetUp) {
  queue.Add(u"AN");
  queue.Add(u"SS");
  EXPECT_EQ(world.module.LiveInstanceCount, 2);
  EXPECT_NE(world.module.SharedSession, nullptr);
  queue.RemoveAll();
  EXPECT_EQ(world.module.LiveInstanceCount, 0);
  EXPECT_EQ(world.module.SharedSession, nullptr);
}

TEST_F(Queue, EntryLivesAsLongAsTheCallerHoldsIt) {
  const auto held = queue.Add(u"AN");
  queue.RemoveAll();
  EXPECT_EQ(world.module.LiveInstanceCount, 1);
  EXPECT_EQ(held->Command(), u"AN");
}

TEST_F(Queue, ReleasesItsEntriesWithItself) {
  {
    CQueue passing(world.module);
    passing.Add(u"AN");
  }
  EXPECT_EQ(world.module.LiveInstanceCount, 0);
}

TEST_F(Queue, RemoveByPositionMovesLaterPositionsUp) {
  queue.Add(u"A", u"a");
  queue.Add(u"B", u"b");
  queue.Add(u"C", u"c");
  queue.Remove(std::int16_t{2});
  EXPECT_EQ(Commands(), (std::vector<std::u16string>{u"A", u"C"}));
  EXPECT_EQ(queue.Item(std::int16_t{2})->Command(), u"C");
  EXPECT_TRUE(RaisesNumber(5, [&] { queue.Item(u"b"); }));
  EXPECT_EQ(queue.Item(u"c")->Command(), u"C");
}

TEST_F(Queue, RemoveByKeyFreesTheKey) {
  queue.Add(u"A", u"a");
  queue.Add(u"B", u"b");
  queue.Remove(u"A");
  EXPECT_EQ(Commands(), (std::vector<std::u16string>{u"B"}));
  queue.Add(u"A2", u"a");
  EXPECT_EQ(queue.Item(u"a")->Command(), u"A2");
}

TEST_F(Queue, RemoveAllOnAnEmptyQueueDoesNothingAndAfterwardsCountIsZero) {
  queue.RemoveAll();
  EXPECT_EQ(queue.Count(), 0);
}

TEST_F(Queue, RemoveAllFreesEveryKey) {
  queue.Add(u"A", u"a");
  queue.Add(u"B");
  queue.RemoveAll();
  EXPECT_EQ(queue.Count(), 0);
  queue.Add(u"C", u"a");
  EXPECT_EQ(queue.Count(), 1);
}

TEST_F(Queue, UnknownKeyOrPositionIsAnInvalidCall) {
  queue.Add(u"A", u"a");
  for (const Value& index : {Value(std::int16_t{0}), Value(std::int16_t{2}), Value(std::int32_t{-1}), Value(u"b"),
                             Value(u"1"), Value(), Value(true)}) {
    const auto error = ErrorOf([&] { queue.Item(index); });
    ASSERT_TRUE(error.has_value()) << Describe(index);
    EXPECT_EQ(error->Number(), 5) << Describe(index);
    EXPECT_TRUE(RaisesNumber(5, [&] { queue.Remove(index); })) << Describe(index);
  }
  EXPECT_EQ(queue.Count(), 1);
}

TEST_F(Queue, IndexOfAWrongTypeIsATypeMismatch) {
  queue.Add(u"A");
  EXPECT_TRUE(RaisesNumber(13, [&] { queue.Item(TextArray{}); }));
  EXPECT_TRUE(RaisesNumber(13, [&] { queue.Remove(ObjectRef(FakeObject::Make(world.calls, "index"))); }));
}

TEST_F(Queue, PositionIsRoundedHalfToEven) {
  queue.Add(u"A");
  queue.Add(u"B");
  EXPECT_EQ(queue.Item(1.4)->Command(), u"A");
  EXPECT_EQ(queue.Item(1.5)->Command(), u"B");
  EXPECT_EQ(queue.Item(2.5)->Command(), u"B");
  EXPECT_TRUE(RaisesNumber(5, [&] { queue.Item(0.5); }));
}

TEST_F(Queue, EntriesAreASnapshot) {
  queue.Add(u"A");
  const auto entries = queue.Entries();
  queue.RemoveAll();
  EXPECT_EQ(entries.size(), 1U);
}

}  // namespace
}  // namespace wendrill::testing
