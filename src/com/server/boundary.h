// The exception boundary of COM methods: the one place where an exception becomes a status code (HRESULT) with error
// information, and where a failed status becomes an exception.
#pragma once

#include <ole2.h>
#include <windows.h>

#include <string>
#include <type_traits>

namespace wendrill::com {

// The system's message for a status code; empty when there is no message.
std::u16string SystemText(HRESULT status);

// Converts the current exception, of any type, to a status code and sets the thread's error information (IErrorInfo).
// - An Error: the status of its number, or E_FAIL when that status is a success code; the error information has its
//   source and description.
// - std::bad_alloc: E_OUTOFMEMORY; the error information is cleared.
// - Any other std::exception: E_UNEXPECTED; the error information has the library's name as the source and what() as
//   the description.
// - An exception of any other type: E_UNEXPECTED; the error information is cleared.
// REQUIRES: called from a catch block.
HRESULT ReportCurrentException() noexcept;

// Runs the work of a method and returns its status, or S_OK for work without a result. Converts an exception to a
// status code: no exception may leave a COM method, because the caller may be built by another compiler. Always
// inlined, because a function call here would make a property call a quarter slower.
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

// Moves the thread's error information into the EXCEPINFO of a late-bound call. Returns the status that Invoke must
// return: DISP_E_EXCEPTION when the EXCEPINFO was filled; `status` when `exception` is null or the thread has no error
// information.
HRESULT FillException(HRESULT status, EXCEPINFO* exception) noexcept;

// Raises the failure of a call as an Error. The content of the Error depends on the thread's error information:
// - The error information has a description: the Error has the number that NumberOfStatus returns for `status`, and the
//   source and the description of the error information.
// - There is no error information, or its description is empty: the Error has the number that NumberOfBareStatus
//   returns for `status`. When this is the number of a run-time error (RunTimeError), the Error has the automation run
//   time's standard description. Otherwise the Error has the system's message for `status`; "Automation error" when the
//   system has no message. The Error keeps the source of the error information; without a source, a run-time error has
//   the library's name as its source, and any other Error has an empty source.
// The error information may be left over from an earlier failure: clear it before the call (SetErrorInfo), or use
// RaiseStatusOf.
[[noreturn]] void RaiseStatus(HRESULT status);

inline void Check(HRESULT status) {
  if (FAILED(status)) {
    RaiseStatus(status);
  }
}

// Raises the failure of a call through the interface `calledInterface` of `callee`, as RaiseStatus does. When the
// callee does not support error information for that interface (ISupportErrorInfo), the thread's error information does
// not belong to the call: the function clears it first.
[[noreturn]] void RaiseStatusOf(HRESULT status, IUnknown* callee, REFIID calledInterface);

template <typename Interface>
void CheckCall(HRESULT status, Interface* callee) {
  if (FAILED(status)) {
    RaiseStatusOf(status, callee, __uuidof(Interface));
  }
}

// Raises the failure of a late-bound call as an Error. The rules are those of RaiseStatus, but instead of the thread's
// error information, the content of `exception` counts:
// - `status` is DISP_E_EXCEPTION: the source and the description are those in `exception`, whose strings the function
//   frees. The status is the one in `exception`: scode, or the status of wCode when scode is 0. E_FAIL replaces a
//   success code.
// - Any other status: `exception` is not read, and there is no error information.
[[noreturn]] void RaiseDispatchFailure(HRESULT status, EXCEPINFO& exception);

}  // namespace wendrill::com
