// The simulated desktop of this process and how its objects cross the COM border.
#pragma once

#include <memory>
#include <unordered_map>

#include "com/adapters/foreign_object.h"
#include "com/adapters/windows_platform.h"
#include "com/server/variant_values.h"
#include "core/world.h"

namespace wendrill::simulator {

class DispatchObject;

// Converts simulated PNR objects to IDispatch and back. Any other object that a caller passes is kept and returned as
// the same object.
class SimulatedObjects final : public com::ObjectBridge {
 public:
  ObjectRef ToCore(IDispatch* object) const override;
  IDispatch* ToAutomation(const ObjectRef& object) const override;
};

struct Simulation {
  com::LocalClock clock;
  World world;
  com::KnownNames names;  // for the foreign objects that are kept
  SimulatedObjects bridge;

  // The automation object of each simulated object that has one now, not AddRef'ed: reading a session's connection
  // twice returns the same object.
  std::unordered_map<const AutomationObject*, DispatchObject*> wrappers;
};

// The simulation of this process, created with the first object and kept until the process ends: a scenario stays
// loaded after the control object that loaded it is released.
Simulation& TheSimulation();

// Starts the trace that the environment asks for, once in a process. Raises 5 for a variable that means nothing and 75
// for a file that cannot be written.
void StartTraceOfEnvironment();

// Ends the delivery of events. Called when the last object has been released.
void EndEventDelivery();

inline Value ValueIn(const VARIANT& variant) {
  return com::ToValue(variant, TheSimulation().bridge);
}
inline void ValueOut(const Value& value, VARIANT* variant, com::ArrayForm form) {
  com::ToVariant(value, variant, TheSimulation().bridge, form);
}

}  // namespace wendrill::simulator
