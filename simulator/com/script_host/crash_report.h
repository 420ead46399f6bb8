// A script that brings its process down must not end in silence.
#pragma once

#include <string>

namespace wendrill::script_host {

// From here on a crash of the process is reported on stderr under the script's name, with the module in which it
// happened; the exit status is then 3.
void ReportCrashesOf(const std::wstring& scriptName);

}  // namespace wendrill::script_host
