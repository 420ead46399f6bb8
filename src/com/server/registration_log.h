// regsvr32 shows only the number of a failure. The reason is in the thread's error information, for programs, and in a
// log file, for people.
#pragma once

#include <windows.h>

namespace wendrill::com {

// Appends one line of UTF-8 to the file that the environment variable WENDRILL_REGISTER_LOG names: this DLL's path, the
// description from the thread's error information (which is kept), and the status. Does nothing when the variable is
// not set or the file cannot be written.
void LogRefusal(HRESULT status) noexcept;

}  // namespace wendrill::com
