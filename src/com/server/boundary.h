// The COM border: the one place where an exception becomes a status code with rich error information.
#pragma once

#include <ole2.h>
#include <windows.h>

#include <string>
#include <type_traits>

namespace wendrill::com {

// The system's message for a status code; empty when there is no message.
std::u16string SystemText(HRESULT status);

// Converts the current exception, of whatever type, to a status code, and sets the thread's error information
// (IErrorInfo) to its source and description. REQUIRES: called from a catch block.
HRESULT ReportCurrentException() noexcept;

// Runs a member's work and converts an exception to a status code. No exception may leave a COM method, because the
// caller may be built by another compiler. Inlined: a call of it would make a property call a quarter slower.
template <typename Work>
[[gnu::always_inline]] inline HRESULT Guarded(Work&& work) noexcept {
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

// Moves the thread's error information into the EXCEPINFO of a late-bound call, and returns the status that Invoke has
// to return. `exception` may be null.
HRESULT FillException(HRESULT status, EXCEPINFO* exception) noexcept;

// Raises the failure of a call as an Error: with the thread's error information if there is any, otherwise with the
// automation run time's number and description for the code, otherwise with the system's message. Error information
// that an earlier failure left would be used too: clear it before the call (SetErrorInfo), or use RaiseStatusOf.
[[noreturn]] void RaiseStatus(HRESULT status);

inline void Check(HRESULT status) {
  if (FAILED(status)) {
    RaiseStatus(status);
  }
}

// The same for a call through an interface: the thread's error information is used only when the callee supports error
// information for `calledInterface` (ISupportErrorInfo).
[[noreturn]] void RaiseStatusOf(HRESULT status, IUnknown* callee, REFIID calledInterface);

template <typename Interface>
void CheckCall(HRESULT status, Interface* callee) {
  if (FAILED(status)) {
    RaiseStatusOf(status, callee, __uuidof(Interface));
  }
}

// The same for a late-bound call, whose error information is in an EXCEPINFO. Frees the strings in `exception`.
[[noreturn]] void RaiseDispatchFailure(HRESULT status, EXCEPINFO& exception);

}  // namespace wendrill::com
