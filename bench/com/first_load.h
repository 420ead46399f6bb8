// What a process pays that loads a DLL for the first time. Some DLLs stay until the process ends, so each measurement
// has a process of its own: this program once more, called as com_bench.exe --first-load FILE.dll.
#pragma once

namespace wendrill::com::bench {

// In nanoseconds. Throws when the process cannot be started or the DLL not be loaded.
double FirstLoadInAFreshProcess(const char* library);

// What the new process does. Its exit status is the time in units of 100 ns, or 0 when the DLL cannot be loaded.
int MeasureFirstLoad(const char* library);

}  // namespace wendrill::com::bench
