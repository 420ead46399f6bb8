// Private interfaces between the simulator and the program that runs a script with it. They have no marshalling: both
// sides are in one process and on one thread.
#pragma once

#include <unknwn.h>
#include <windows.h>

#include <string_view>

#include "trace/lines.h"
#include "trace/settings.h"

namespace wendrill::simulator {

// Implemented by the program.
MIDL_INTERFACE("0C1B5B3E-7D8A-4C39-9B64-5D0A8E1B2F76")
IRunObserver : public IUnknown {
 public:
  // Called at the start of every call of a simulated member, with what identifies the call in a message: an entry, a
  // key's code, or nothing. A failing status makes the call fail; `why` is then its description.
  virtual HRESULT Entered(std::wstring_view operation, std::wstring_view argument, const wchar_t** why) = 0;

  // Called with each expectation when it is recorded; `failure` is empty when it held.
  virtual void Expected(std::wstring_view name, std::wstring_view failure) = 0;
};

// Supported by QuilletSimulator.Control.
MIDL_INTERFACE("B1D0A6C4-2F57-4E9A-A3C8-6E95D17F20B3")
IObservable : public IUnknown {
 public:
  // From now on the observer is told; null ends that. The simulator does not AddRef the observer.
  virtual void Observe(IRunObserver * observer) = 0;

  // Starts the trace of the run; `script` is its file name. Fails when the file cannot be written.
  virtual HRESULT StartTrace(const trace::Settings& settings, std::wstring_view script) = 0;

  // Writes the error that ended the script. May be called on any thread.
  virtual void TraceError(const trace::Failed& error) = 0;

  // Writes what the report finds, and the end.
  virtual void EndTrace(int status) = 0;

  // Writes the end alone. May be called on any thread: the one that runs the script may never come back.
  virtual void CutTrace(int status) = 0;

  // Whether everything could be written to the trace so far; true without a trace.
  virtual bool TraceIsWhole() = 0;
};

}  // namespace wendrill::simulator

#ifdef __CRT_UUID_DECL
__CRT_UUID_DECL(wendrill::simulator::IRunObserver, 0x0C1B5B3E, 0x7D8A, 0x4C39, 0x9B, 0x64, 0x5D, 0x0A, 0x8E, 0x1B, 0x2F,
                0x76)
__CRT_UUID_DECL(wendrill::simulator::IObservable, 0xB1D0A6C4, 0x2F57, 0x4E9A, 0xA3, 0xC8, 0x6E, 0x95, 0xD1, 0x7F, 0x20,
                0xB3)
#endif
