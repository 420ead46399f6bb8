// The script host's connection to the simulator. The simulator notifies the connection of every call of a simulated
// member and of the outcome of every expectation. At the end of the run, the connection reads the simulator's report.
#pragma once

#include <wrl/client.h>

#include <string>
#include <vector>

#include "com/run_observer.h"
#include "run_record.h"
#include "time_limit.h"

namespace wendrill::script_host {

// The simulator's report at the end of a run: as text, and as lists of unanswered entries, of unused replies and PNRs,
// and of warnings. Each item of the three lists is a finding.
struct RunFindings {
  std::wstring report;  // lines that end with CR LF; empty when the simulator has nothing to report
  std::vector<std::wstring> unanswered;
  std::vector<std::wstring> unused;
  std::vector<std::wstring> warnings;
  bool strict = false;  // whether a scenario of the run makes the run strict
  long count = 0;       // the number of findings; a strict run with any finding fails
};

class SimulatorLink final : public simulator::IRunObserver {
 public:
  // Creates QuilletSimulator.Control and becomes its observer. Throws UsageError when the simulator cannot be created.
  // `limit` and `record` must outlive this object.
  SimulatorLink(std::wstring scriptName, TimeLimit& limit, RunRecord& record);
  ~SimulatorLink();
  SimulatorLink(const SimulatorLink&) = delete;
  SimulatorLink& operator=(const SimulatorLink&) = delete;

  // Reads the simulator's report. Throws Failure when a property of the report cannot be read.
  RunFindings Findings();

  // Returns the simulator's IObservable, not AddRef'ed: the pointer is valid while this object exists. Null when the
  // simulator does not implement IObservable.
  simulator::IObservable* Observable() const { return observable_.Get(); }

  // IUnknown without a reference count: AddRef and Release have no effect. The creator alone owns the object. The
  // simulator does not AddRef the object, and the destructor unregisters it from the simulator.
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
