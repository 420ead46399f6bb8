// A client that loads both DLLs and lets them go again and again.
#pragma once

namespace wendrill::soak {

// So many loads and unloads without any call, then as many with a call in each that fails. True when every call failed
// as meant and nothing was left behind.
bool LoadAndUnload(int times);

}  // namespace wendrill::soak
