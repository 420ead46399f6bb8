// The simulated desktop of this process, and the conversion of its objects to and from automation.
#pragma once

#include <memory>
#include <unordered_map>

#include "com/adapters/foreign_object.h"
#include "com/adapters/windows_platform.h"
#include "com/server/variant_values.h"
#include "core/world.h"

namespace wendrill::simulator {

class DispatchObject;

// Converts simulated objects to IDispatch and back. An object of another server, such as one that a script stores in a
// parameter bag, is wrapped for the core; ToAutomation returns the original object.
class SimulatedObjects final : public com::ObjectBridge {
 public:
  ObjectRef ToCore(IDispatch* object) const override;
  IDispatch* ToAutomation(const ObjectRef& object) const override;
};

struct Simulation {
  com::LocalClock clock;
  World world;
  com::KnownNames names;  // caches the DISPIDs of the wrapped objects' members
  SimulatedObjects bridge;

  // The automation object of each simulated object that has one at present; not AddRef'ed. The map lets repeated reads
  // of a property, such as a session's connection, return the same automation object.
  std::unordered_map<const AutomationObject*, DispatchObject*> wrappers;
};

// The simulation of this process. It is created at the first call and lives until the process ends. So a scenario stays
// loaded after the control object that loaded it has been released.
Simulation& TheSimulation();

// Starts the trace for which the environment variables of trace/settings.h ask. Does nothing without such variables, or
// when an earlier call in this process has succeeded. Raises 5 for an invalid value of a variable and 75 for a file
// that cannot be written.
void StartTraceOfEnvironment();

// Ends the delivery of events and releases the type information in `names`. The module calls this function when the
// last object of the DLL has been released.
void EndEventDelivery();

inline Value ValueIn(const VARIANT& variant) {
  return com::ToValue(variant, TheSimulation().bridge);
}
inline void ValueOut(const Value& value, VARIANT* variant, com::ArrayForm form) {
  com::ToVariant(value, variant, TheSimulation().bridge, form);
}

}  // namespace wendrill::simulator
