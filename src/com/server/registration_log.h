// The log of failed registrations. regsvr32 shows only the status code of a failure. The reason is in the thread's
// error information, for programs, and in this log file, for people.
#pragma once

#include <windows.h>

namespace wendrill::com {

// Appends one line of UTF-8 to the file that the environment variable WENDRILL_REGISTER_LOG names: the path of this
// DLL, the description of the failure, and the status. The description is read from the thread's error information,
// which stays set. When there is no error information, the description is the system's message for the status. Does
// nothing when the variable is not set or the file cannot be written.
void LogRefusal(HRESULT status) noexcept;

}  // namespace wendrill::com
