// A slow, obvious reference implementation of the page collector. It counts positions itself, copies the texts at every
// step, and shares no code with the library. Tests and a fuzz target compare the library's page collector with it.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace wendrill::testing {

struct ReferenceCollection {
  std::u16string text;
  std::vector<std::u16string> pages;
  bool wantsMore = false;  // whether the last page announces a further page, which the input does not have
};

// Collects `pages`, the responses to `entry` and to the entries MD after it. Ignores the pages after the first one that
// does not announce a further page.
ReferenceCollection CollectByReference(const std::u16string& entry, int responseType,
                                       const std::vector<std::u16string>& pages);

}  // namespace wendrill::testing
