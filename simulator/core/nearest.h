// The distance between two strings, and the known names nearest to a misspelled name.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace wendrill::simulator {

// The optimal string alignment distance: the least number of edits that turns one string into the other. An edit
// inserts, deletes or replaces a character, or swaps two neighbouring characters; no part of the string is edited
// twice. Case-sensitive. Returns limit + 1 when the distance is above `limit`, without computing the exact distance.
// Takes O(length x limit) steps.
std::size_t AlignmentDistance(std::u16string_view left, std::u16string_view right, std::size_t limit);

// The greatest distance at which a candidate counts as near to a misspelled string of this length: a third of the
// length, rounded down, but at least 2.
constexpr std::size_t NearLimit(std::size_t length) {
  return length / 3 > 2 ? length / 3 : 2;
}

// The greatest number of candidates that a message names.
inline constexpr std::size_t kMostNearest = 3;

// The candidates near to a misspelled name (NearLimit), at most kMostNearest. The nearest comes first; equally near
// candidates keep their order. Case is ignored, as in automation: "buffer" is at distance 0 from "Buffer". A candidate
// whose distance equals the length of the longer string is not near, because the two strings have nothing in common.
// The returned views refer to the characters of `candidates`.
std::vector<std::u16string_view> NearestNames(std::u16string_view misspelled,
                                              std::span<const std::u16string_view> candidates);

// The candidate nearest to a misspelled name, as NearestNames finds it; empty when no candidate is near.
std::u16string_view NearestName(std::u16string_view misspelled, std::span<const std::u16string_view> candidates);

}  // namespace wendrill::simulator
