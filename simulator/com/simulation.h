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

// Converts between objects of the core (ObjectRef) and IDispatch. Besides simulated objects, this class converts
// objects of other servers, such as an object that a script stores in a parameter bag: ToCore wraps the foreign
// IDispatch in a core object, and ToAutomation returns the wrapped IDispatch.
class SimulatedObjects final : public com::ObjectBridge {
 public:
  ObjectRef ToCore(IDispatch* object) const override;
  IDispatch* ToAutomation(const ObjectRef& object) const override;
};

struct Simulation {
  com::LocalClock clock;
  World world;
  com::KnownNames names;  // caches the DISPIDs of the members of objects of other servers
  SimulatedObjects bridge;

  // The automation objects that exist at present, by the simulated object that each of them represents; not AddRef'ed.
  // With this map, repeated reads of a property, such as a session's connection, return the same automation object.
  std::unordered_map<const AutomationObject*, DispatchObject*> wrappers;
};

// Returns the simulation of this process. The first call creates the simulation, which exists until the process ends.
// So a scenario stays loaded after the control object that loaded it has been released.
Simulation& TheSimulation();

// Starts the trace that the environment variables of trace/settings.h configure. Does nothing when QUILLET_TRACE is not
// set, or when an earlier call in this process has succeeded. Raises 5 (invalid argument) for an invalid value of a
// variable and 75 (path or file access error) for a file that cannot be written.
void StartTraceOfEnvironment();

// Destroys the window that delivers events. Empties the cache Simulation::names, which releases type information of
// other servers. The module calls EndEventDelivery when the last object of the DLL has been released.
void EndEventDelivery();

inline Value ValueIn(const VARIANT& variant) {
  return com::ToValue(variant, TheSimulation().bridge);
}
inline void ValueOut(const Value& value, VARIANT* variant, com::ArrayForm form) {
  com::ToVariant(value, variant, TheSimulation().bridge, form);
}

}  // namespace wendrill::simulator
