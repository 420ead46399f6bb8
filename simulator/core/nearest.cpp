#include "core/nearest.h"

#include <algorithm>
#include <string>

#include "common/text.h"

namespace wendrill::simulator {

// The table of distances is filled row by row, of which three are kept: a swap looks two rows back. Only the cells at
// most `limit` columns from the diagonal can hold a distance within the limit; the others count as above it.
std::size_t AlignmentDistance(std::u16string_view left, std::u16string_view right, std::size_t limit) {
  if (left.size() > right.size()) {
    std::swap(left, right);
  }
  limit = std::min(limit, right.size());
  const std::size_t above = limit + 1;
  if (right.size() - left.size() > limit) {
    return above;
  }
  const std::size_t width = right.size() + 1;
  std::vector<std::size_t> twoBack(width, above);
  std::vector<std::size_t> before(width, above);
  std::vector<std::size_t> row(width, above);
  for (std::size_t j = 0; j <= limit; ++j) {
    row[j] = j;
  }
  for (std::size_t i = 1; i <= left.size(); ++i) {
    std::swap(twoBack, before);
    std::swap(before, row);
    const std::size_t first = i > limit ? i - limit : 0;
    const std::size_t last = std::min(i + limit, right.size());
    std::size_t least = above;
    if (first > 0) {
      row[first - 1] = above;
    }
    for (std::size_t j = first; j <= last; ++j) {
      std::size_t cell = before[j] + 1;
      if (j > 0) {
        cell = std::min({cell, row[j - 1] + 1, before[j - 1] + (left[i - 1] == right[j - 1] ? 0 : 1)});
      }
      if (i > 1 && j > 1 && left[i - 1] == right[j - 2] && left[i - 2] == right[j - 1]) {
        cell = std::min(cell, twoBack[j - 2] + 1);
      }
      row[j] = std::min(cell, above);
      least = std::min(least, row[j]);
    }
    if (last < right.size()) {
      row[last + 1] = above;
    }
    if (least == above) {
      return above;
    }
  }
  return row[right.size()];
}

std::vector<std::u16string_view> NearestNames(std::u16string_view misspelled,
                                              std::span<const std::u16string_view> candidates) {
  struct Near {
    std::size_t distance;
    std::u16string_view name;
  };
  const std::u16string sought = UpperCase(misspelled);
  const std::size_t limit = NearLimit(sought.size());
  std::vector<Near> near;
  for (const std::u16string_view candidate : candidates) {
    const std::size_t distance = AlignmentDistance(sought, UpperCase(candidate), limit);
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
