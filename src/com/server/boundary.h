// The COM border: the one place where an exception becomes a status code with rich error information.
#pragma once

#include <ole2.h>
#include <windows.h>

#include <string>
#include <type_traits>

namespace wendrill::com {

// The system's text for a status code; empty when it has none.
std::u16string SystemText(HRESULT status);

// Turns the exception that is being handled into a status code and leaves its source and description on the thread,
// where the caller's run time looks for them. Catches everything. Call it from a catch block only.
HRESULT ReportCurrentException() noexcept;

// Runs a member's work. No exception leaves a COM method: the caller may be made by another compiler.
template <typename Work>
HRESULT Guarded(Work&& work) noexcept {
  try {
    if constexpr (std::is_same_v<std::invoke_result_t<Work>, HRESULT>) {
      return work();
    } else {
      work();
      return S_OK;
    }
  } catch (...) {
    return ReportCurrentException();
  }
}

// Moves the error information that a method left on the thread into the EXCEPINFO of a late-bound call, where such
// callers look for it; returns what the call answers. `exception` may be null.
HRESULT FillException(HRESULT status, EXCEPINFO* exception) noexcept;

// Raises a failed status code of a call as an Error: with the rich error information on the thread, else with the
// number and text that the automation run time has for the code, else with the system's text. Information that an
// earlier failure left behind looks just the same: clear it before the call (SetErrorInfo), or use the form below.
[[noreturn]] void RaiseStatus(HRESULT status);

inline void Check(HRESULT status) {
  if (FAILED(status)) {
    RaiseStatus(status);
  }
}

// The same for a call through an interface: error information counts only when the callee says that it leaves some.
[[noreturn]] void RaiseStatusOf(HRESULT status, IUnknown* callee, REFIID calledInterface);

template <typename Interface>
void CheckCall(HRESULT status, Interface* callee) {
  if (FAILED(status)) {
    RaiseStatusOf(status, callee, __uuidof(Interface));
  }
}

// The same for a late-bound call, whose errors come in an EXCEPINFO. Frees the strings in it.
[[noreturn]] void RaiseDispatchFailure(HRESULT status, EXCEPINFO& exception);

}  // namespace wendrill::com
