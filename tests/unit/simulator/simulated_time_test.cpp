#include "core/simulated_time.h"

#include <gtest/gtest.h>

#include "simulated_world.h"

namespace wendrill::simulator {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

TEST(SimulatedClock, EveryReadingMovesItByAStep) {
  SimulatedClock clock;
  clock.SetSeconds(100);
  clock.SetStep(milliseconds(500));
  EXPECT_DOUBLE_EQ(clock.SecondsSinceMidnight(), 100);
  EXPECT_DOUBLE_EQ(clock.SecondsSinceMidnight(), 100.5);
  EXPECT_DOUBLE_EQ(clock.SecondsSinceMidnight(), 101);
}

TEST(SimulatedClock, SleepMovesItAndIsRemembered) {
  SimulatedClock clock;
  clock.SetSeconds(100);
  clock.Sleep(milliseconds(400));
  EXPECT_DOUBLE_EQ(clock.SecondsSinceMidnight(), 100.4);
  EXPECT_EQ(clock.Sleeps(), std::vector<milliseconds>{milliseconds(400)});
}

TEST(SimulatedClock, FallsBackToZeroAtMidnight) {
  SimulatedClock clock;
  clock.SetSeconds(86399);
  clock.SetStep(seconds(1));
  EXPECT_DOUBLE_EQ(clock.SecondsSinceMidnight(), 86399);
  EXPECT_DOUBLE_EQ(clock.SecondsSinceMidnight(), 0);
}

class Pump : public SimulatedWorld {};

TEST_F(Pump, EveryRunDoesTheCallersTaskThenDeliversTheEvents) {
  Load(u"[[session]]\nname = 'A'\n");
  const auto session = world.MakeSession();
  std::string order;
  const auto connection = session->OnReceivedResponse([&] { order += "event "; });
  world.Pump().OnRun([&] { order += "task "; });
  session->Send(u"X", true);
  world.Pump().RunOnce();
  world.Pump().RunOnce();
  EXPECT_EQ(order, "task event task ");
}

}  // namespace
}  // namespace wendrill::simulator
