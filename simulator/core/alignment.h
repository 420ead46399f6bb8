// The table behind the distance of two strings: optimal string alignment.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace wendrill::simulator {

// In a pattern: any one character, and any number of characters. They are code points that no text holds.
inline constexpr char16_t kAnyCharacter = 0xFDD0;
inline constexpr char16_t kAnyCharacters = 0xFDD1;

// Computes distances one after the other, with the same memory.
class Alignment {
 public:
  // See AlignmentDistance in nearest.h.
  std::size_t Distance(std::u16string_view left, std::u16string_view right, std::size_t limit);

  // The distance of a text from the nearest text that has the form of the pattern; limit + 1 when it is above the
  // limit. Takes O(text x pattern) steps.
  std::size_t DistanceFrom(std::u16string_view pattern, std::u16string_view text, std::size_t limit);

  // How many cells of the table have been filled so far.
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
