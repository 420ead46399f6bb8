#include "com/control_object.h"

#include "com/results.h"
#include "com/simulation.h"

namespace wendrill::simulator {

HRESULT ControlObject::Load(BSTR path) {
  return com::Guarded([&] { TheSimulation().world.Load(com::TextOf(path)); });
}

HRESULT ControlObject::LoadText(BSTR toml) {
  return com::Guarded([&] { TheSimulation().world.LoadText(com::TextOf(toml)); });
}

HRESULT ControlObject::get_Journal(BSTR* result) {
  return GiveResult(result, [&] { return TheSimulation().world.Journal(); });
}

HRESULT ControlObject::ClearJournal() {
  return com::Guarded([&] { TheSimulation().world.ClearJournal(); });
}

HRESULT ControlObject::FailNext(BSTR operation, LONG status, LONG nth) {
  return com::Guarded([&] { TheSimulation().world.FailNext(com::TextOf(operation), status, nth); });
}

HRESULT ControlObject::get_LiveObjects(LONG* result) {
  return GiveResult(result, [&] { return TheSimulation().world.LiveObjects(); });
}

HRESULT ControlObject::get_Calls(LONG* result) {
  return GiveResult(result, [&] { return static_cast<std::int32_t>(TheSimulation().world.Calls()); });
}

}  // namespace wendrill::simulator
