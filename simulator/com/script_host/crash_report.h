// Reports a script that crashes its process.
#pragma once

#include <functional>
#include <string>

namespace wendrill::script_host {

// From this call on, a crash of the process is reported on stderr with the script's name and the module in which the
// crash happened, and the exit status is 1.
void ReportCrashesOf(const std::wstring& scriptName);

// What to do with the message after it is printed; an empty function ends that. Called on a thread of its own and for a
// limited time: what it needs may be broken.
void AfterCrashReport(std::function<void(const std::wstring& message)> act);

}  // namespace wendrill::script_host
