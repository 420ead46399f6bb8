#include "batch/queue_key.h"

#include <algorithm>
#include <iterator>

namespace wendrill {
namespace {

// A range of small letters. The code point of a small letter minus `distance` is the code point of its capital. With
// `step` 2, small and capital letters alternate in the range, and only every second character, beginning with `first`,
// is a small letter.
struct SmallLetters {
  char16_t first;
  char16_t last;
  int distance;
  int step = 1;
};

// The ranges of small letters that have a capital, in ascending order for the binary search in Capital.
constexpr SmallLetters kSmallLetters[] = {
    {u'a', u'z', 0x20},     {0x00E0, 0x00F6, 0x20},  // Latin with accents
    {0x00F8, 0x00FE, 0x20}, {0x00FF, 0x00FF, -0x79}, {0x0101, 0x012F, 1, 2}, {0x0133, 0x0137, 1, 2},
    {0x013A, 0x0148, 1, 2}, {0x014B, 0x0177, 1, 2},  {0x017A, 0x017E, 1, 2}, {0x03AC, 0x03AC, 0x26},  // Greek
    {0x03AD, 0x03AF, 0x25}, {0x03B1, 0x03C1, 0x20},  {0x03C3, 0x03CB, 0x20}, {0x03CC, 0x03CC, 0x40},
    {0x03CD, 0x03CE, 0x3F}, {0x0430, 0x044F, 0x20},  // Cyrillic
    {0x0450, 0x045F, 0x50}, {0x1E01, 0x1E95, 1, 2},  // Latin with more accents
    {0x1EA1, 0x1EF9, 1, 2},
};

char16_t Capital(char16_t character) {
  const auto letters = std::ranges::lower_bound(kSmallLetters, character, {}, &SmallLetters::last);
  const bool isSmall = letters != std::end(kSmallLetters) && character >= letters->first &&
                       (character - letters->first) % letters->step == 0;
  return isSmall ? static_cast<char16_t>(character - letters->distance) : character;
}

}  // namespace

std::u16string FoldedKey(TextView key) {
  std::u16string folded(key);
  std::ranges::transform(folded, folded.begin(), Capital);
  return folded;
}

}  // namespace wendrill
