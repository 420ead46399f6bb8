#include "core/nearest.h"

#include <algorithm>
#include <string>

#include "common/text.h"
#include "core/alignment.h"

namespace wendrill::simulator {

std::size_t AlignmentDistance(std::u16string_view left, std::u16string_view right, std::size_t limit) {
  return Alignment().Distance(left, right, limit);
}

std::vector<std::u16string_view> NearestNames(std::u16string_view misspelled,
                                              std::span<const std::u16string_view> candidates) {
  struct Near {
    std::size_t distance;
    std::u16string_view name;
  };
  const std::u16string sought = UpperCase(misspelled);
  const std::size_t limit = NearLimit(sought.size());
  Alignment alignment;
  std::vector<Near> near;
  for (const std::u16string_view candidate : candidates) {
    const std::size_t distance = alignment.Distance(sought, UpperCase(candidate), limit);
    if (distance <= limit && distance < std::max(sought.size(), candidate.size())) {
      near.push_back({distance, candidate});
    }
  }
  std::stable_sort(near.begin(), near.end(),
                   [](const Near& left, const Near& right) { return left.distance < right.distance; });
  std::vector<std::u16string_view> names;
  for (std::size_t i = 0; i < std::min(near.size(), kMostNearest); ++i) {
    names.push_back(near[i].name);
  }
  return names;
}

std::u16string_view NearestName(std::u16string_view misspelled, std::span<const std::u16string_view> candidates) {
  const auto names = NearestNames(misspelled, candidates);
  return names.empty() ? std::u16string_view() : names.front();
}

}  // namespace wendrill::simulator
