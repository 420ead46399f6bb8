// The simulated desktop of this process and how its objects cross the COM border.
#pragma once

#include <memory>
#include <unordered_map>

#include "com/adapters/foreign_object.h"
#include "com/server/variant_values.h"
#include "core/world.h"

namespace wendrill::simulator {

class DispatchObject;

// Simulated PNR objects come and go as IDispatch; anything else that a caller hands over is kept as it is and handed
// back as it is.
class SimulatedObjects final : public com::ObjectBridge {
 public:
  ObjectRef ToCore(IDispatch* object) const override;
  IDispatch* ToAutomation(const ObjectRef& object) const override;
};

struct Simulation {
  World world;
  com::KnownNames names;  // for foreign objects that are kept
  SimulatedObjects bridge;

  // The automation object of a simulated one, as long as one lives: a connection that is read twice is one object.
  std::unordered_map<const AutomationObject*, DispatchObject*> wrappers;
};

// Made with the first object and kept until the process ends: a scenario stays loaded when the control that loaded it
// goes.
Simulation& TheSimulation();

// Ends the delivery of events; runs when the last object has gone.
void EndEventDelivery();

inline Value ValueIn(const VARIANT& variant) {
  return com::ToValue(variant, TheSimulation().bridge);
}
inline void ValueOut(const Value& value, VARIANT* variant, com::ArrayForm form) {
  com::ToVariant(value, variant, TheSimulation().bridge, form);
}

}  // namespace wendrill::simulator
