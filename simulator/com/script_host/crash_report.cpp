#include "crash_report.h"

#include <windows.h>

#include <cwchar>
#include <string>
#include <utility>

#include "console.h"

namespace wendrill::script_host {

namespace {

constexpr UINT kCrashed = 1;  // the exit status; an uncaught error of the script gives 1 too

constexpr DWORD kMostMillisecondsForReport = 10'000;

// The data of the crash report. These variables are in static memory, because a crashed process may have no usable
// heap.
wchar_t crashedScript[MAX_PATH];
EXCEPTION_RECORD crash;
HANDLE crashed;  // an event that is signalled after `crash` has been filled in
std::function<void(const std::wstring&)> tellFurther;

const wchar_t* FileNameOf(const wchar_t* path) {
  const wchar_t* separator = std::wcsrchr(path, L'\\');
  return separator == nullptr ? path : separator + 1;
}

// Prints the message, then calls `tellFurther`. Printing comes first, because it depends on fewer parts of the crashed
// process.
void Tell(std::wstring message) {
  WriteError(message + L"\r\n");
  if (tellFurther) {
    tellFurther(message);
  }
}

void ReportEndlessRecursion() {
  wchar_t message[MAX_PATH + 100];
  std::swprintf(message, std::size(message),
                L"%ls: the script ran out of stack: does a procedure call itself without end? (exception 0x%08lX)",
                crashedScript, static_cast<unsigned long>(crash.ExceptionCode));
  Tell(message);
}

void ReportCrash() {
  HMODULE module = nullptr;
  wchar_t modulePath[MAX_PATH] = L"an unknown module";
  if (GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                         static_cast<LPCWSTR>(crash.ExceptionAddress), &module) != 0) {
    GetModuleFileNameW(module, modulePath, MAX_PATH);
  }
  wchar_t message[2 * MAX_PATH + 100];
  std::swprintf(message, std::size(message), L"%ls: the script's process crashed in %ls (exception 0x%08lX)",
                crashedScript, FileNameOf(modulePath), static_cast<unsigned long>(crash.ExceptionCode));
  Tell(message);
}

// Waits for a crash, reports it and ends the process. Runs on its own thread, because a thread that crashed by stack
// overflow has no stack left for the report: Wine 10 ends the process silently when the exception handler needs more
// than a few hundred bytes of stack.
DWORD WINAPI ReportWhenCrashed(void*) {
  WaitForSingleObject(crashed, INFINITE);
  if (crash.ExceptionCode == EXCEPTION_STACK_OVERFLOW) {
    // The report does not name the module in which the stack overflowed: that module may have no part in the recursion.
    ReportEndlessRecursion();
  } else {
    ReportCrash();
  }
  TerminateProcess(GetCurrentProcess(), kCrashed);
  return 0;
}

// The exception handler. It wakes the reporting thread, and ends the process after 10 seconds if the reporting thread
// has not ended the process before. The wait is limited, because a crash inside the loader holds locks for which the
// report might wait for ever.
LONG WINAPI HandToReporter(EXCEPTION_POINTERS* pointers) {
  crash = *pointers->ExceptionRecord;
  SetEvent(crashed);
  Sleep(kMostMillisecondsForReport);
  TerminateProcess(GetCurrentProcess(), kCrashed);
  return EXCEPTION_EXECUTE_HANDLER;
}

}  // namespace

void ReportCrashesOf(const std::wstring& scriptName) {
  std::swprintf(crashedScript, std::size(crashedScript), L"%ls", scriptName.c_str());
  crashed = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  CreateThread(nullptr, 0, ReportWhenCrashed, nullptr, 0, nullptr);
  SetUnhandledExceptionFilter(HandToReporter);
}

void AfterCrashReport(std::function<void(const std::wstring&)> act) {
  tellFurther = std::move(act);
}

}  // namespace wendrill::script_host
