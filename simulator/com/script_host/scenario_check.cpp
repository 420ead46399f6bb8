#include "scenario_check.h"

#include <wrl/client.h>

#include "command_line.h"
#include "late_bound.h"

namespace wendrill::script_host {

void RequireGoodScenario(const std::wstring& path) {
  try {
    Microsoft::WRL::ComPtr<IDispatch> control;
    control.Attach(CreateByName(L"QuilletSimulator.Control"));
    CallByName(*control.Get(), L"Load", &path, nullptr);
  } catch (const Failure& failure) {
    throw UsageError{failure.description.empty() ? L"scenario file cannot be loaded: " + path : failure.description};
  }
}

}  // namespace wendrill::script_host
