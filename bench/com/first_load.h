// Measures how long a process takes to load a DLL for the first time. Some DLLs stay loaded until the process ends, so
// each measurement starts a new process of this program: com_bench.exe --first-load FILE.dll.
#pragma once

namespace wendrill::com::bench {

// The time of the first load in nanoseconds. Throws std::runtime_error when the process cannot be started, or when the
// DLL cannot be loaded.
double FirstLoadInAFreshProcess(const char* library);

// The work of the new process. Returns its exit status: the time of the load in units of 100 ns, or 0 when the DLL
// cannot be loaded or was loaded before.
int MeasureFirstLoad(const char* library);

}  // namespace wendrill::com::bench
