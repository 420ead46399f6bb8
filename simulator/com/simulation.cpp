#include "com/simulation.h"

#include "com/dispatch_object.h"
#include "com/server/boundary.h"
#include "com/server/conversions.h"
#include "com/server/module.h"
#include "com/server/module_path.h"
#include "core/environment.h"
#include "core/run_summary.h"

namespace wendrill::simulator {
namespace {

constexpr wchar_t kWindowClass[] = L"QuilletSimulatorEvents";
constexpr UINT kDeliver = WM_APP;

// A message-only window through which events of the simulated terminal are delivered. Queuing an event posts one
// message to this window; the event is delivered when the thread pumps this message. Null before the first event.
HWND eventWindow = nullptr;

LRESULT CALLBACK OnWindowMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != kDeliver) {
    return DefWindowProcW(window, message, wParam, lParam);
  }
  com::Guarded([] { TheSimulation().world.DeliverPending(); });
  return 0;
}

void PostDelivery() {
  if (eventWindow == nullptr) {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = OnWindowMessage;
    windowClass.hInstance = com::ModuleInstance();
    windowClass.lpszClassName = kWindowClass;
    RegisterClassW(&windowClass);
    eventWindow =
        CreateWindowExW(0, kWindowClass, nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, com::ModuleInstance(), nullptr);
  }
  PostMessageW(eventWindow, kDeliver, 0, 0);
}

}  // namespace

// Called at the creation of every object of a creatable class; the static variable makes only the first call start the
// trace. When starting the trace fails, the lambda throws. C++ then leaves `isDone` uninitialised, so that the next
// call tries again.
void StartTraceOfEnvironment() {
  static const bool isDone = [] {
    const std::u16string file = EnvironmentText(trace::kFileVariable);
    if (!file.empty()) {
      const std::wstring program = com::PathOfModule(nullptr);
      TheSimulation().world.StartTrace(
          trace::SettingsOf(file, EnvironmentText(trace::kTimesVariable), EnvironmentText(trace::kKeptVariable)),
          FileName(com::TextOf(std::wstring_view(program))));
    }
    return true;
  }();
  static_cast<void>(isDone);
}

Simulation& TheSimulation() {
  static Simulation simulation;
  static const bool isReady =
      (simulation.world.OnEventQueued(PostDelivery), simulation.world.UseTexts(com::UsersTextForms()),
       simulation.world.UseClock(simulation.clock), true);
  (void)isReady;
  return simulation;
}

void EndEventDelivery() {
  if (eventWindow != nullptr) {
    DestroyWindow(eventWindow);
    UnregisterClassW(kWindowClass, com::ModuleInstance());
    eventWindow = nullptr;
  }
  TheSimulation().names.Forget();
}

ObjectRef SimulatedObjects::ToCore(IDispatch* object) const {
  com::Reference<ISimulated> ours;
  if (SUCCEEDED(object->QueryInterface(__uuidof(ISimulated), ours.ReceiveVoid()))) {
    return ours->Simulated();
  }
  return com::ForeignObjects(TheSimulation().names).ToCore(object);
}

IDispatch* SimulatedObjects::ToAutomation(const ObjectRef& object) const {
  if (!object) {
    return nullptr;
  }
  if (auto simulated = std::dynamic_pointer_cast<SimulatedObject>(object)) {
    return DispatchObject::For(std::move(simulated));
  }
  return com::ForeignObjects(TheSimulation().names).ToAutomation(object);
}

}  // namespace wendrill::simulator
