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
#include "support/watched_platform.h"

namespace wendrill::flow {

// Nothing is created or connected before a test asks for it.
struct MemberDesk {
  explicit MemberDesk(simulator::World& simulated) : world(simulated) {}

  CQuillet& Quillet() { return quillet ? *quillet : quillet.emplace(module); }
  CBatch& Batch() { return batch ? *batch : batch.emplace(module); }
  simulator::SimulatedBag& Bag() { return *(bag ? bag : bag = world.MakeParamBag()); }

  simulator::World& world;
  testing::WatchedPlatform platform{world};
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
