// The script host's connection to the simulator: the calls and expectations of a run, and its report at the end.
#pragma once

#include <wrl/client.h>

#include <string>
#include <vector>

#include "com/run_observer.h"
#include "run_record.h"
#include "time_limit.h"

namespace wendrill::script_host {

// What the simulator reports at the end of a run.
struct RunFindings {
  std::wstring report;  // lines ended by CR LF; empty when there is nothing to report
  std::vector<std::wstring> unanswered;
  std::vector<std::wstring> unused;
  std::vector<std::wstring> warnings;
  bool strict = false;  // a scenario of the run asks for strictness
  long count = 0;       // how many findings strictness counts
};

class SimulatorLink final : public simulator::IRunObserver {
 public:
  // Throws UsageError when the simulator cannot be created.
  SimulatorLink(std::wstring scriptName, TimeLimit& limit, RunRecord& record);
  ~SimulatorLink();
  SimulatorLink(const SimulatorLink&) = delete;
  SimulatorLink& operator=(const SimulatorLink&) = delete;

  RunFindings Findings();

  // Null beside a simulator that cannot be observed.
  simulator::IObservable* Observable() const { return observable_.Get(); }

  // Owned by its creator alone: the simulator does not count references.
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }

  HRESULT Entered(std::wstring_view operation, std::wstring_view argument, const wchar_t** why) override;
  void Expected(std::wstring_view name, std::wstring_view failure) override;

 private:
  std::wstring scriptName_;
  TimeLimit& limit_;
  RunRecord& record_;
  Microsoft::WRL::ComPtr<IDispatch> control_;
  Microsoft::WRL::ComPtr<simulator::IObservable> observable_;
};

}  // namespace wendrill::script_host
