// Edit distances (optimal string alignment): between two strings, and between a string and a pattern.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace wendrill::simulator {

// The wildcards of a pattern. kAnyCharacter matches exactly one character, kAnyCharacters any number of characters,
// also zero. Both are Unicode noncharacters, so that no text contains them.
inline constexpr char16_t kAnyCharacter = 0xFDD0;
inline constexpr char16_t kAnyCharacters = 0xFDD1;

// Computes edit distances. An object reuses its memory from one computation to the next. Not thread-safe.
class Alignment {
 public:
  // The optimal string alignment distance between two strings, as AlignmentDistance in nearest.h defines it; limit + 1
  // when the distance is above `limit`. Case-sensitive.
  std::size_t Distance(std::u16string_view left, std::u16string_view right, std::size_t limit);

  // The optimal string alignment distance between `text` and the nearest string that matches `pattern`; limit + 1 when
  // this distance is above `limit`. A swap counts as one edit only when the two characters are neighbours in the
  // pattern: "ba" is at distance 2 from the pattern a*b, although "ab" matches. Takes O(text x pattern) steps.
  std::size_t DistanceFrom(std::u16string_view pattern, std::u16string_view text, std::size_t limit);

  // The number of table cells that this object has computed so far: a measure of the time spent.
  std::uint64_t Steps() const { return steps_; }

 private:
  void Begin(std::size_t width, std::size_t lastOfFirstRow, std::size_t above);
  void NextRow();

  std::vector<std::size_t> twoBack_;
  std::vector<std::size_t> before_;
  std::vector<std::size_t> row_;
  std::uint64_t steps_ = 0;
};

}  // namespace wendrill::simulator
