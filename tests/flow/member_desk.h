// A desktop with one of every object that the library publishes, for tests that run all members.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "batch/batch.h"
#include "batch/queue.h"
#include "common/module_state.h"
#include "core/world.h"
#include "pnr/pnr.h"
#include "pnr/records.h"
#include "scan/display_scans.h"
#include "scan/elements_by_kind.h"
#include "session/encode_utils.h"
#include "session/quillet.h"
#include "toolkit/platform.h"

namespace wendrill::flow {

// The simulated components, whose creation counts among the toolkit's calls and fails like one.
class CountedPlatform final : public Platform {
 public:
  explicit CountedPlatform(simulator::World& world) : world_(world) {}

  std::shared_ptr<HostSessionList> CreateSessionList() override {
    world_.Enter(u"CreateSessionList");
    return world_.Ports().CreateSessionList();
  }
  std::shared_ptr<HostSession> CreateSession() override {
    world_.Enter(u"CreateSession");
    return world_.Ports().CreateSession();
  }
  ObjectRef CreatePnr() override {
    world_.Enter(u"CreatePnr");
    return world_.Ports().CreatePnr();
  }
  std::shared_ptr<AlarmManager> CreateAlarmManager() override {
    world_.Enter(u"CreateAlarmManager");
    return world_.Ports().CreateAlarmManager();
  }
  std::shared_ptr<TextHelperService> CreateTextHelper() override {
    world_.Enter(u"CreateTextHelper");
    return world_.Ports().CreateTextHelper();
  }
  ParamBagRef CreateParamBag() override {
    world_.Enter(u"CreateParamBag");
    return world_.Ports().CreateParamBag();
  }

 private:
  simulator::World& world_;
};

// Nothing is created or connected before a test asks for it.
struct MemberDesk {
  explicit MemberDesk(simulator::World& simulated) : world(simulated) {}

  CQuillet& Quillet() { return quillet ? *quillet : quillet.emplace(module); }
  CBatch& Batch() { return batch ? *batch : batch.emplace(module); }
  simulator::SimulatedBag& Bag() { return *(bag ? bag : bag = world.MakeParamBag()); }

  simulator::World& world;
  CountedPlatform platform{world};
  ModuleState module{platform, world.Time(), world.Pump(), world.Texts()};

  std::optional<CQuillet> quillet;
  std::optional<CQuillet> secondQuillet;
  std::optional<CEncodeUtils> encodeUtils;
  std::optional<CBatch> batch;
  CQueue queue{module};
  CPNR pnr{module};
  PnrRecords records{module};
  DisplayScans scans{module};
  PnrElements elements{module, pnr, scans};
  std::shared_ptr<simulator::SimulatedBag> bag;
  ParamBagRef bagOfResults;  // a bag that the library made
};

}  // namespace wendrill::flow
