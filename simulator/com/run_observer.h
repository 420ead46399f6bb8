// Private interfaces between the simulator and the program that runs a script with it. They have no marshalling: both
// sides are in one process and on one thread.
#pragma once

#include <unknwn.h>
#include <windows.h>

#include <string_view>

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
MIDL_INTERFACE("5E7C2D19-4A63-4F0B-8E21-93B6C7D4A058")
IObservable : public IUnknown {
 public:
  // From now on the observer is told; null ends that. The simulator does not AddRef the observer.
  virtual void Observe(IRunObserver * observer) = 0;
};

}  // namespace wendrill::simulator

#ifdef __CRT_UUID_DECL
__CRT_UUID_DECL(wendrill::simulator::IRunObserver, 0x0C1B5B3E, 0x7D8A, 0x4C39, 0x9B, 0x64, 0x5D, 0x0A, 0x8E, 0x1B, 0x2F,
                0x76)
__CRT_UUID_DECL(wendrill::simulator::IObservable, 0x5E7C2D19, 0x4A63, 0x4F0B, 0x8E, 0x21, 0x93, 0xB6, 0xC7, 0xD4, 0xA0,
                0x58)
#endif
