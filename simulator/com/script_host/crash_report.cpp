#include "crash_report.h"

#include <windows.h>

#include <cwchar>

#include "console.h"

namespace wendrill::script_host {

namespace {

constexpr UINT kCrashed = 3;

// Plain memory: a crashed process may have no heap left to ask for any.
wchar_t crashedScript[MAX_PATH];

const wchar_t* FileNameOf(const wchar_t* path) {
  const wchar_t* separator = std::wcsrchr(path, L'\\');
  return separator == nullptr ? path : separator + 1;
}

LONG WINAPI Report(EXCEPTION_POINTERS* crash) {
  const EXCEPTION_RECORD& record = *crash->ExceptionRecord;
  HMODULE module = nullptr;
  wchar_t modulePath[MAX_PATH] = L"an unknown module";
  if (GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                         static_cast<LPCWSTR>(record.ExceptionAddress), &module) != 0) {
    GetModuleFileNameW(module, modulePath, MAX_PATH);
  }
  wchar_t message[2 * MAX_PATH + 100];
  std::swprintf(message, std::size(message), L"%ls: the script's process crashed in %ls (exception 0x%08lX)\r\n",
                crashedScript, FileNameOf(modulePath), static_cast<unsigned long>(record.ExceptionCode));
  WriteError(message);
  TerminateProcess(GetCurrentProcess(), kCrashed);
  return EXCEPTION_EXECUTE_HANDLER;
}

}  // namespace

void ReportCrashesOf(const std::wstring& scriptName) {
  std::swprintf(crashedScript, std::size(crashedScript), L"%ls", scriptName.c_str());
  SetUnhandledExceptionFilter(Report);
}

}  // namespace wendrill::script_host
