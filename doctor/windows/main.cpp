// The program doctor: reports what is missing on this computer for scripts to reach the terminal.
#include <objbase.h>
#include <windows.h>

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>

#include "core/printed_checks.h"
#include "script_host/console.h"
#include "windows/command_line.h"
#include "windows/wide_text.h"
#include "windows/windows_machine.h"

namespace wendrill::doctor {
namespace {

constexpr int kWrongUsage = 3;

void Print(const std::string& text) {
  script_host::WriteOut(Wide(text));
}

int Run(const CommandLine& line) {
  const WindowsRegistry registry;
  const WindowsFiles files;
  const WindowsSystem system;
  const WindowsComponents components;
  const Machine machine{registry, files, system, line.create ? &components : nullptr};
  std::error_code failure;
  const std::wstring program =
      line.program.empty() ? L"" : std::filesystem::absolute(Wide(line.program), failure).wstring();
  const Checks checks = Examine(machine, Narrow(program));
  Print(line.json ? Json(checks) : Table(checks));
  return static_cast<int>(StateOf(checks));
}

int RunInApartment(const CommandLine& line) {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  const int status = Run(line);
  CoUninitialize();
  return status;
}

}  // namespace
}  // namespace wendrill::doctor

int wmain(int count, wchar_t** words) {
  using namespace wendrill::doctor;
  try {
    const CommandLine line = ReadCommandLine(std::span(words, static_cast<std::size_t>(count)).subspan(1));
    if (line.help || line.version) {
      Print(line.help ? kHelp : "doctor " DOCTOR_VERSION "\n");
      return 0;
    }
    return RunInApartment(line);
  } catch (const UsageError& error) {
    wendrill::script_host::WriteError(L"doctor: " + Wide(error.message) + L"\n\n" + Wide(kHelp));
    return kWrongUsage;
  }
}
