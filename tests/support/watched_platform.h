// The simulator's components, for tests that observe the library's calls and make them fail. Creating a component
// counts as a call of the toolkit and can be made to fail like one. Where a scenario cannot express what a test needs,
// the test can replace what a component returns.
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

  // Each function, when set, replaces the object or the value that the simulated component returns.
  std::function<ObjectRef()> makePnr;
  std::function<ParamBagRef()> makeBag;
  std::function<Value(bool lock)> lockAlarm;  // LockAlarm is still called, and entered in the journal and the call log
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
