// Displays as a host might print them, and as it never would.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <random>
#include <string>
#include <vector>

#include "scan/display_scans.h"

namespace wendrill::testing {

// Equal seeds make equal displays.
class RandomDisplays {
 public:
  explicit RandomDisplays(std::uint32_t seed) : random_(seed) {}

  // What the reads of one display answer in turn: mostly one text, now and then one that changes between two reads. It
  // has elements of the kind among others, in rows or in lines, whole or mutilated.
  std::vector<std::u16string> Next(ScannedKind kind);

  // One display, not mutilated.
  std::u16string Display(ScannedKind kind);

 private:
  using Text = std::u16string;

  bool OneIn(unsigned n) { return Below(n) == 0; }
  unsigned Below(unsigned bound) { return static_cast<unsigned>(random_() % bound); }
  Text Pick(std::initializer_list<const char16_t*> texts);
  Text Blanks(unsigned most) { return Text(Below(most + 1), u' '); }
  Text Digits(unsigned most);
  Text Mutated(Text text);

  Text Number();
  Text Associations();
  Text Locator();
  Text Line(ScannedKind kind);
  Text ElementLine(ScannedKind kind);
  Text OtherLine();
  Text SpecialService();
  Text OtherService();
  Text Security();
  Text ManualTkt();
  Text MiscTktInfo();
  Text SUR();
  Text ATX();
  Text MCO();

  std::mt19937 random_;
};

}  // namespace wendrill::testing
