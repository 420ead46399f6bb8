#include "com/control_object.h"

#include "com/results.h"
#include "com/simulation.h"
#include "common/error.h"

namespace wendrill::simulator {
namespace {

RunReport& Findings() {
  return TheSimulation().world.Findings();
}

// Stores the lines that `work` returns in `result`, as an array of VARIANT with the lower bound 0: scripts cannot index
// an array of BSTR. Returns E_POINTER when `result` is null.
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

void* ControlObject::FindFurther(REFIID wanted) {
  return wanted == __uuidof(IObservable) ? static_cast<IObservable*>(&observable_) : nullptr;
}

HRESULT ControlObject::Observable::QueryInterface(REFIID wanted, void** object) {
  return whole_.QueryInterface(wanted, object);
}

void ControlObject::Observable::Observe(IRunObserver* observer) {
  World& world = TheSimulation().world;
  if (observer == nullptr) {
    world.Watch({});
    world.OnExpectation({});
    return;
  }
  world.Watch([observer](std::u16string_view operation, std::u16string_view argument) {
    const wchar_t* why = L"";
    const HRESULT status = observer->Entered(com::WideOf(operation), com::WideOf(argument), &why);
    if (FAILED(status)) {
      Fail(NumberOfStatus(status), std::u16string(com::TextOf(std::wstring_view(why))));
    }
  });
  world.OnExpectation([observer](const Expectation& expectation) {
    observer->Expected(com::WideOf(expectation.name), com::WideOf(expectation.failure));
  });
}

HRESULT ControlObject::Observable::StartTrace(const trace::Settings& settings, std::wstring_view script) {
  return com::Guarded([&] { TheSimulation().world.StartTrace(settings, com::TextOf(script)); });
}

void ControlObject::Observable::TraceError(const trace::Failed& error) {
  if (trace::Trace* trace = TheSimulation().world.Tracing()) {
    trace->Write(error);
  }
}

void ControlObject::Observable::EndTrace(int status) {
  com::Guarded([&] { TheSimulation().world.EndTrace(status); });
}

void ControlObject::Observable::CutTrace(int status) {
  if (trace::Trace* trace = TheSimulation().world.Tracing()) {
    trace->Write(trace::Ended{.status = status});
  }
}

bool ControlObject::Observable::TraceIsWhole() {
  const trace::Trace* trace = TheSimulation().world.Tracing();
  return trace == nullptr || trace->IsWhole();
}

}  // namespace wendrill::simulator
