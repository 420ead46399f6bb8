// Private interfaces between the simulator and the program that runs a script with the simulator, such as the script
// host. The interfaces have no marshalling: the simulator and the program are in one process. The simulator and the
// program call each other on one thread; only the methods with the comment "Thread-safe" may also be called on other
// threads.
#pragma once

#include <unknwn.h>
#include <windows.h>

#include <string_view>

#include "trace/lines.h"
#include "trace/settings.h"

namespace wendrill::simulator {

// Receives the calls of simulated members and the results of expectations. Implemented by the program that runs the
// script.
MIDL_INTERFACE("0C1B5B3E-7D8A-4C39-9B64-5D0A8E1B2F76")
IRunObserver : public IUnknown {
 public:
  // Called at the start of every call of a simulated member or of a member of QuilletSimulator.Expect. `operation` is
  // the name of the member. `argument` is the entry for Send and the code of the key for SendKey; it is empty for every
  // other member. When the returned status is a failure, the call of the member fails with that status, and with `why`
  // as its description.
  virtual HRESULT Entered(std::wstring_view operation, std::wstring_view argument, const wchar_t** why) = 0;

  // Called for each expectation when its result is known. `failure` describes the failure; it is empty when the
  // expectation holds.
  virtual void Expected(std::wstring_view name, std::wstring_view failure) = 0;
};

// Sets the observer of a run and controls the trace of the run. Implemented by QuilletSimulator.Control.
MIDL_INTERFACE("B1D0A6C4-2F57-4E9A-A3C8-6E95D17F20B3")
IObservable : public IUnknown {
 public:
  // From this call on, the simulator reports to `observer` instead of the observer of an earlier call. A null
  // `observer` ends the observation. The simulator does not AddRef the observer.
  virtual void Observe(IRunObserver * observer) = 0;

  // Starts the trace of the run. `script` is the file name of the script. Returns a failure status when the trace
  // cannot be started, for example because its file cannot be written.
  virtual HRESULT StartTrace(const trace::Settings& settings, std::wstring_view script) = 0;

  // Writes to the trace the error that ended the script. Thread-safe.
  virtual void TraceError(const trace::Failed& error) = 0;

  // Ends the trace: writes the findings of the simulator's report (such as unanswered entries and unused replies), then
  // the line `end`, which is the last line of a trace. `status` is the exit status. Does nothing when there is no trace
  // or the trace has already ended.
  virtual void EndTrace(int status) = 0;

  // Ends the trace without the findings of the simulator's report: writes only the line `end`. `status` is the exit
  // status. Thread-safe, so that the thread that watches the time limit can call CutTrace while the script's thread is
  // in a call that never returns.
  virtual void CutTrace(int status) = 0;

  // Whether every line of the trace so far could be written. True when there is no trace.
  virtual bool TraceIsWhole() = 0;
};

}  // namespace wendrill::simulator

#ifdef __CRT_UUID_DECL
__CRT_UUID_DECL(wendrill::simulator::IRunObserver, 0x0C1B5B3E, 0x7D8A, 0x4C39, 0x9B, 0x64, 0x5D, 0x0A, 0x8E, 0x1B, 0x2F,
                0x76)
__CRT_UUID_DECL(wendrill::simulator::IObservable, 0xB1D0A6C4, 0x2F57, 0x4E9A, 0xA3, 0xC8, 0x6E, 0x95, 0xD1, 0x7F, 0x20,
                0xB3)
#endif
