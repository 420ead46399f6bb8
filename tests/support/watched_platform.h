// The simulator's components for tests that watch and disturb the library: creating a component counts among the
// toolkit's calls and fails like one, and a test may put something else in the place of what a scenario cannot express.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "core/world.h"
#include "toolkit/platform.h"

namespace wendrill::testing {

class WatchedPlatform final : public Platform {
 public:
  explicit WatchedPlatform(simulator::World& world) : world_(world) {}

  // Each replaces the simulated component's answer where it is set.
  std::function<ObjectRef()> makePnr;
  std::function<ParamBagRef()> makeBag;
  std::function<Value(bool lock)> lockAlarm;  // the call stays in journal and call log
  std::function<std::u16string(const Value& date)> hostDateText;

  std::shared_ptr<HostSessionList> CreateSessionList() override;
  std::shared_ptr<HostSession> CreateSession() override;
  ObjectRef CreatePnr() override;
  std::shared_ptr<AlarmManager> CreateAlarmManager() override;
  std::shared_ptr<TextHelperService> CreateTextHelper() override;
  ParamBagRef CreateParamBag() override;

 private:
  simulator::World& world_;
};

}  // namespace wendrill::testing
