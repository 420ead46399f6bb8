#include "com/control_object.h"

#include "com/results.h"
#include "com/simulation.h"

namespace wendrill::com {

template <>
const DispatchTable& TableOf<_Control>() {
  using I = _Control;
  static constexpr auto kMembers = std::to_array<DispatchRow>({
      Action<&I::Load>(1, L"Load", {L"path"}),
      Action<&I::LoadText>(2, L"LoadText", {L"toml"}),
      Property<&I::get_Journal>(3, L"Journal"),
      Action<&I::ClearJournal>(4, L"ClearJournal"),
      Action<&I::FailNext>(5, L"FailNext", {L"operation", L"status", L"nth"}),
      Property<&I::get_LiveObjects>(6, L"LiveObjects"),
      Property<&I::get_Calls>(7, L"Calls"),
  });
  static const DispatchTable table(kMembers);
  return table;
}

}  // namespace wendrill::com

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
