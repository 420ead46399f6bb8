#include "simulator_link.h"

#include <utility>

#include "command_line.h"
#include "console.h"
#include "late_bound.h"

namespace wendrill::script_host {

SimulatorLink::SimulatorLink(std::wstring scriptName, TimeLimit& limit, RunRecord& record)
    : scriptName_(std::move(scriptName)), limit_(limit), record_(record) {
  try {
    control_.Attach(CreateByName(L"QuilletSimulator.Control"));
  } catch (const Failure& failure) {
    throw UsageError{L"the simulator beside this program cannot be used: " + failure.description};
  }
  if (SUCCEEDED(control_->QueryInterface(__uuidof(simulator::IObservable),
                                         reinterpret_cast<void**>(observable_.ReleaseAndGetAddressOf())))) {
    observable_->Observe(this);
  }
}

SimulatorLink::~SimulatorLink() {
  if (observable_) {
    observable_->Observe(nullptr);
  }
}

RunFindings SimulatorLink::Findings() {
  return {TextOf(*control_.Get(), L"Report"),  TextsOf(*control_.Get(), L"Unanswered"),
          TextsOf(*control_.Get(), L"Unused"), TextsOf(*control_.Get(), L"Warnings"),
          TruthOf(*control_.Get(), L"Strict"), NumberOf(*control_.Get(), L"Findings")};
}

HRESULT SimulatorLink::QueryInterface(REFIID wanted, void** object) {
  const bool known = wanted == IID_IUnknown || wanted == __uuidof(simulator::IRunObserver);
  *object = known ? this : nullptr;
  return known ? S_OK : E_NOINTERFACE;
}

HRESULT SimulatorLink::Entered(std::wstring_view operation, std::wstring_view argument, const wchar_t** why) {
  const wchar_t* reason = limit_.Enter(operation, argument);
  if (reason == nullptr) {
    return S_OK;
  }
  *why = reason;
  return TimeLimit::kStatus;
}

void SimulatorLink::Expected(std::wstring_view name, std::wstring_view failure) {
  record_.Add({std::wstring(name), std::wstring(failure)});
  if (!failure.empty()) {
    WriteError(scriptName_ + L": expectation \"" + std::wstring(name) + L"\" failed: " + std::wstring(failure) +
               L"\r\n");
  }
}

}  // namespace wendrill::script_host
