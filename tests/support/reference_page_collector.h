// The page collector once more, slow and obvious: positions counted by hand, texts copied at every step, nothing shared
// with the library but the type of its text. Tests compare the two on random displays.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace wendrill::testing {

struct ReferenceCollection {
  std::u16string text;
  std::vector<std::u16string> pages;
  bool wantsMore = false;  // the display asked for a page that is not there
};

ReferenceCollection CollectByReference(const std::u16string& entry, int responseType,
                                       const std::vector<std::u16string>& pages);

}  // namespace wendrill::testing
