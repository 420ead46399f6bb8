#include "growth.h"

#include <windows.h>

#include <cstdio>

namespace wendrill::soak {

long LiveIn(const wchar_t* dll) {
  const auto address = GetProcAddress(GetModuleHandleW(dll), "DllCanUnloadNow");
  return reinterpret_cast<HRESULT(WINAPI*)()>(reinterpret_cast<void*>(address))() == S_OK ? 0 : 1;
}

bool NothingLeftBehind(const Memory& before, const Memory& after, long liveObjects) {
  constexpr double kGrowthAllowed = 1.0;  // percent
  const double privateGrowth = Growth(before.privateBytes, after.privateBytes);
  const double heapGrowth = Growth(before.heapBytes, after.heapBytes);
  std::printf("  private memory %+.2f %%, heaps %+.2f %%; %ld objects live\n", privateGrowth, heapGrowth, liveObjects);
  std::fflush(stdout);
  return privateGrowth <= kGrowthAllowed && heapGrowth <= kGrowthAllowed && liveObjects == 0;
}

}  // namespace wendrill::soak
