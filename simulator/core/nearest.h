// How far two strings are apart, and which candidate is nearest to a misspelled one.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace wendrill::simulator {

// The optimal string alignment distance: how many insertions, deletions, replacements of a character and swaps of two
// neighbouring characters turn one string into the other, when no part is edited twice. Case-sensitive. A distance
// above `limit` is not computed to its end: limit + 1 is returned. Takes O(length x limit) steps.
std::size_t AlignmentDistance(std::u16string_view left, std::u16string_view right, std::size_t limit);

// Up to which distance a candidate counts as near to a misspelled string of this length: a third of it, at least 2.
constexpr std::size_t NearLimit(std::size_t length) {
  return length / 3 > 2 ? length / 3 : 2;
}

// The most candidates that a message names.
inline constexpr std::size_t kMostNearest = 3;

// The names near to a misspelled one, at most kMostNearest, the nearest first, and equally near ones in the order of
// the candidates. Case does not count, as in automation: "buffer" is at distance 0 from "Buffer". A candidate
// that has nothing in common with the name is not near. The result refers to the candidates' characters.
std::vector<std::u16string_view> NearestNames(std::u16string_view misspelled,
                                              std::span<const std::u16string_view> candidates);

// The nearest of them; empty when no candidate is near.
std::u16string_view NearestName(std::u16string_view misspelled, std::span<const std::u16string_view> candidates);

}  // namespace wendrill::simulator
