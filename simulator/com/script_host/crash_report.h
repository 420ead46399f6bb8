// Reports a script that crashes its process.
#pragma once

#include <string>

namespace wendrill::script_host {

// From this call on, a crash of the process is reported on stderr with the script's name and the module in which the
// crash happened, and the exit status is 1.
void ReportCrashesOf(const std::wstring& scriptName);

}  // namespace wendrill::script_host
