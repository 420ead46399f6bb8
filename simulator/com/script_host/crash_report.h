// Reports a crash of the process that runs the script.
#pragma once

#include <functional>
#include <string>

namespace wendrill::script_host {

// From this call on, a crash of the process is reported on standard error, with the script's name and the module that
// crashed. For an exhausted stack the report names endless recursion in place of a module. The exit status is then 1.
void ReportCrashesOf(const std::wstring& scriptName);

// Sets the function that is called after the message of a crash has been printed; an empty function removes it. The
// function is called on the reporting thread, and must expect that parts of the process are damaged. The process ends
// at most 10 seconds after the crash, even if the function has not returned.
void AfterCrashReport(std::function<void(const std::wstring& message)> act);

}  // namespace wendrill::script_host
