// A progress bar on standard error while displays are read. Writes nothing when standard error is not a terminal.
#pragma once

#include <chrono>
#include <cstdint>

#include "display_source.h"

namespace wendrill::tool {

class Progress {
 public:
  // REQUIRES: `source` outlives this object.
  explicit Progress(const DisplaySource& source);

  void Show(std::uint64_t displays);
  void Clear();

 private:
  const DisplaySource& source_;
  bool isTerminal_;
  bool isShown_ = false;
  std::chrono::steady_clock::time_point next_;
};

}  // namespace wendrill::tool
