// Reports a crash of the process that runs the script.
#pragma once

#include <functional>
#include <string>

namespace wendrill::script_host {

// From this call on, a crash of the process (an exception that nothing handles) is reported on standard error, with the
// script's name. After a stack overflow, the report suggests infinite recursion as the cause. After any other crash,
// the report names the module that crashed. The exit status is 1 after every crash.
void ReportCrashesOf(const std::wstring& scriptName);

// Sets the function that is called after the message of a crash has been printed. An empty `act` removes the function
// of an earlier call. The function receives the printed message. It is called on the thread that reports crashes, not
// on the thread that crashed, and must expect that parts of the process are damaged. The process ends at most 10
// seconds after the crash, even if the function has not returned.
void AfterCrashReport(std::function<void(const std::wstring& message)> act);

}  // namespace wendrill::script_host
