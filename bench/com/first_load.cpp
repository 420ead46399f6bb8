#include "first_load.h"

#include <windows.h>

#include <algorithm>
#include <stdexcept>
#include <string>

#include "measure.h"

namespace wendrill::com::bench {
namespace {

constexpr double kUnit = 100;                   // the unit of the exit status, in nanoseconds
constexpr DWORD kMostUnits = 600'000'000;       // one minute; a larger exit status is that of a crash
constexpr DWORD kMillisecondsAllowed = 60'000;  // the timeout of the new process

std::string OwnFile() {
  char file[MAX_PATH];
  return std::string(file, GetModuleFileNameA(nullptr, file, MAX_PATH));
}

DWORD StatusOf(HANDLE process) {
  DWORD status = 0;
  if (WaitForSingleObject(process, kMillisecondsAllowed) != WAIT_OBJECT_0) {
    TerminateProcess(process, 0);
  }
  GetExitCodeProcess(process, &status);
  return status;
}

}  // namespace

double FirstLoadInAFreshProcess(const char* library) {
  std::string command = "\"" + OwnFile() + "\" --first-load " + library;
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  if (CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process) ==
      FALSE) {
    throw std::runtime_error("a process cannot be started");
  }
  const DWORD units = StatusOf(process.hProcess);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  if (units == 0 || units > kMostUnits) {
    throw std::runtime_error(std::string(library) + " cannot be loaded in a fresh process");
  }
  return units * kUnit;
}

int MeasureFirstLoad(const char* library) {
  HMODULE loaded = GetModuleHandleA(library);
  if (loaded != nullptr) {
    return 0;  // the DLL is already loaded, so a first load cannot be measured
  }
  const double time = TimeOnce([&] { loaded = LoadLibraryA(library); });
  return loaded == nullptr ? 0 : std::max(1, static_cast<int>(time / kUnit));
}

}  // namespace wendrill::com::bench
