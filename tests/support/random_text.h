// What random displays and random elements are composed of.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <random>
#include <string>

namespace wendrill::testing {

// Equal seeds make equal texts.
class RandomText {
 protected:
  using Text = std::u16string;
  using Texts = std::initializer_list<const char16_t*>;

  explicit RandomText(std::uint32_t seed) : random_(seed) {}

  bool OneIn(unsigned n) { return Below(n) == 0; }
  unsigned Below(unsigned bound) { return static_cast<unsigned>(random_() % bound); }
  Text Pick(Texts texts);
  Text Blanks(unsigned most) { return Text(Below(most + 1), u' '); }
  Text Digits(unsigned most);  // at least one

  // None to three parts such as "/P1", "/S2-3", ",P4", and what only looks like one.
  Text Associations();

  // Up to three changes: characters removed or replaced, a trap or a line break inserted.
  Text Mutated(Text text, Texts traps);

 private:
  std::mt19937 random_;
};

}  // namespace wendrill::testing
