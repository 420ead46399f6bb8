// The base class of the generators of random displays and random elements: generates their parts.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <random>
#include <string>

namespace wendrill::testing {

// The generator is deterministic: equal seeds result in equal texts.
class RandomText {
 protected:
  using Text = std::u16string;
  using Texts = std::initializer_list<const char16_t*>;

  explicit RandomText(std::uint32_t seed) : random_(seed) {}

  bool OneIn(unsigned n) { return Below(n) == 0; }
  unsigned Below(unsigned bound) { return static_cast<unsigned>(random_() % bound); }
  Text Pick(Texts texts);
  Text Blanks(unsigned most) { return Text(Below(most + 1), u' '); }
  Text Digits(unsigned most);  // 1 to `most` digits

  // Zero to three associations such as "/P1", "/S2-3", ",P4". Some of them are malformed.
  Text Associations();

  // Mutates the text with zero to three changes. A change removes characters, replaces one, inserts one of `traps`, or
  // inserts a line break or other short text.
  Text Mutated(Text text, Texts traps);

 private:
  std::mt19937 random_;
};

}  // namespace wendrill::testing
