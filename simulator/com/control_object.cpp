#include "com/control_object.h"

#include "com/results.h"
#include "com/simulation.h"

namespace wendrill::simulator {
namespace {

RunReport& Findings() {
  return TheSimulation().world.Findings();
}

// Stores lines as an array of VARIANT from 0, the only kind of array that a script can index.
template <typename Work>
HRESULT GiveLines(VARIANT* result, Work&& work) {
  if (result == nullptr) {
    return E_POINTER;
  }
  return com::Guarded([&] { ValueOut(TextArray{.lowerBound = 0, .items = work()}, result, com::ArrayForm::Variants); });
}

}  // namespace

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

HRESULT ControlObject::get_Report(BSTR* result) {
  return GiveResult(result, [&] { return Findings().Text(); });
}

HRESULT ControlObject::get_Unanswered(VARIANT* result) {
  return GiveLines(result, [&] { return Findings().Unanswered(); });
}

HRESULT ControlObject::get_Unused(VARIANT* result) {
  return GiveLines(result, [&] { return Findings().Unused(); });
}

HRESULT ControlObject::get_Warnings(VARIANT* result) {
  return GiveLines(result, [&] { return Findings().Warnings(); });
}

HRESULT ControlObject::get_Findings(LONG* result) {
  return GiveResult(result, [&] { return Findings().Findings(); });
}

HRESULT ControlObject::get_Strict(VARIANT_BOOL* result) {
  return GiveResult(result, [&] { return Findings().StrictAsked(); });
}

HRESULT ControlObject::Warn(BSTR warning) {
  return com::Guarded([&] { Findings().Warn(com::TextOf(warning)); });
}

}  // namespace wendrill::simulator
