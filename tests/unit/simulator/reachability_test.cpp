#include "core/reachability.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "simulated_world.h"

namespace wendrill::simulator {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> WarningsOf(std::string_view toml) {
  std::vector<std::string> warnings;
  for (const auto& warning : UnreachableParts(*ParseScenario(toml, u"test.toml"))) {
    warnings.push_back(ToUtf8(warning));
  }
  return warnings;
}

TEST(Reachability, AReplyAfterOneThatAlwaysMatchesIsNeverReached) {
  EXPECT_THAT(WarningsOf("reply = [\n{ starts = 'A', screen = '' },\n{ entry = 'AN', screen = '' } ]"),
              ElementsAre(R"(line 3, entry = "AN" is never reached: line 2, starts = "A" always answers first)"));
  EXPECT_THAT(WarningsOf("reply = [\n{ entry = 'AN', screen = '' },\n{ starts = 'A', screen = '' } ]"), IsEmpty());
}

TEST(Reachability, AGroupOfSeveralRepliesGivesWayInTheEnd) {
  EXPECT_THAT(WarningsOf("reply = [{ starts = 'A', screen = '1' }, { starts = 'A', screen = '2' }, "
                         "{ entry = 'AN', screen = '' }]"),
              IsEmpty());
}

TEST(Reachability, ANarrowerReplyDoesNotHideAWiderOne) {
  EXPECT_THAT(WarningsOf("session = [{ name = 'A' }]\nreply = [{ entry = 'AN', session = 'A', screen = '' }, { entry = "
                         "'AN', screen = '' }]"),
              IsEmpty());
  EXPECT_THAT(
      WarningsOf(
          "session = [{ name = 'A' }]\nreply = [\n{ entry = 'AN', screen = '' },\n{ entry = 'AN', session = 'A', "
          "screen = '' } ]"),
      ElementsAre(
          R"(line 4, entry = "AN", session = "A" is never reached: line 3, entry = "AN" always answers first)"));
}

TEST(Reachability, AStateThatNothingSetsAndASessionThatDoesNotRunAreNamed) {
  EXPECT_THAT(
      WarningsOf("session = [{ name = 'A' }]\nreply = [\n{ entry = 'X', when = 'opne', screen = '' },\n"
                 "{ entry = 'Y', then = 'open', screen = '' },\n{ entry = 'Z', session = 'C', screen = '' } ]"),
      ElementsAre(
          R"(line 3, entry = "X", when = "opne" is never reached: nothing sets the state "opne"; nearest: "open")",
          R"(line 5, entry = "Z", session = "C" is never reached: no session "C" runs)"));
}

TEST(Reachability, APnrSetsStatesToo) {
  EXPECT_THAT(
      WarningsOf("pnr = [{ RecordLocator = 'A', then = 'read' }]\nreply = [{ entry = 'X', when = 'read', screen "
                 "= '' }]"),
      IsEmpty());
}

TEST(Reachability, PnrsWithOneLocatorTakeTurns) {
  EXPECT_THAT(WarningsOf("pnr = [{ RecordLocator = 'A' }, { RecordLocator = 'A' }]"), IsEmpty());
}

TEST(Reachability, APnrAfterOneThatIsAlwaysFoundFirstIsNeverReached) {
  EXPECT_THAT(
      WarningsOf("reply = [{ entry = 'ER', then = 's', screen = '' }]\npnr = [\n{ RecordLocator = 'A' },\n{ "
                 "RecordLocator = 'A', when = 's' } ]"),
      ElementsAre(
          R"(line 4, RecordLocator = "A", when = "s" is never reached: line 3, RecordLocator = "A" always answers first)"));
}

// The first and the last are a group of two: the one between them is found after both of their turns.
TEST(Reachability, APnrIsReachedAfterTheTurnsOfAGroupOfSeveral) {
  EXPECT_THAT(
      WarningsOf("session = [{ name = 'S' }]\n"
                 "pnr = [{ RecordLocator = 'A' }, { RecordLocator = 'A', session = 'S' }, { entries = ['RTA'] }]"),
      IsEmpty());
}

TEST(Reachability, APnrIsReachedByAnEntryThatAGroupOfSeveralHasInCommon) {
  EXPECT_THAT(
      WarningsOf("session = [{ name = 'S' }]\n"
                 "pnr = [{ RecordLocator = 'A', entries = ['RT'] }, { entries = ['RT'] },\n"
                 "{ RecordLocator = 'A', entries = ['RT'], session = 'S' },\n{ RecordLocator = 'A', session = 'S' } ]"),
      ElementsAre(
          R"(line 4, RecordLocator = "A", session = "S" is never reached: line 2, RecordLocator = "A" always answers first)"));
}

TEST(Reachability, APnrThatNothingFindsIsNeverReached) {
  EXPECT_THAT(
      WarningsOf("pnr = [\n{ display = 'X' },\n{ on_display = true } ]"),
      ElementsAre(
          "line 2, the PNR without a locator is never reached: it has no RecordLocator and no entries, and is not on "
          "display"));
}

TEST(Reachability, ASilentKeyWithoutEffectIsNamed) {
  EXPECT_THAT(WarningsOf("[terminal]\nsilent = [353, 322, 352]\nrefuses = [352]\n"),
              ElementsAre("silent key 322 has no effect: it never raises an event",
                          "silent key 352 has no effect: the terminal refuses it"));
}

}  // namespace
}  // namespace wendrill::simulator
