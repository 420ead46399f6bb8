// What a run added to what the process holds.
#pragma once

#include "memory.h"

namespace wendrill::soak {

// In percent of what was there before.
inline double Growth(std::size_t before, std::size_t after) {
  return (static_cast<double>(after) / static_cast<double>(before) - 1) * 100;
}

// Whether anything lives of a DLL that is loaded: 1 or 0.
long LiveIn(const wchar_t* dll);

// Prints how much private memory and heaps grew, and how many objects live in the end. True when nothing lives and
// each of the two grew by at most one percent.
bool NothingLeftBehind(const Memory& before, const Memory& after, long liveObjects);

}  // namespace wendrill::soak
