#include "com/simulation.h"

#include "com/dispatch_object.h"
#include "com/server/boundary.h"
#include "com/server/conversions.h"
#include "com/server/module.h"
#include "core/run_summary.h"

namespace wendrill::simulator {
namespace {

constexpr wchar_t kWindowClass[] = L"QuilletSimulatorEvents";
constexpr UINT kDeliver = WM_APP;

// Receives a message for each pending event, so that events are delivered while the caller's messages are pumped.
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

// The value of an environment variable; empty when it is not set.
std::u16string Variable(std::u16string_view name) {
  const wchar_t* value = _wgetenv(std::wstring(name.begin(), name.end()).c_str());
  return value == nullptr ? std::u16string() : std::u16string(com::TextOf(std::wstring_view(value)));
}

// The file name of the program that loaded this DLL.
std::u16string ProgramName() {
  wchar_t path[MAX_PATH] = L"";
  GetModuleFileNameW(nullptr, path, MAX_PATH);
  return std::u16string(FileName(com::TextOf(std::wstring_view(path))));
}

}  // namespace

void StartTraceOfEnvironment() {
  World& world = TheSimulation().world;
  const std::u16string file = Variable(trace::kFileVariable);
  if (!file.empty() && world.Tracing() == nullptr) {
    world.StartTrace(trace::SettingsOf(file, Variable(trace::kTimesVariable), Variable(trace::kKeptVariable)),
                     ProgramName());
  }
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
