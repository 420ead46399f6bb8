// Displays as a host might print them, and as it never would.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "scan/display_kinds.h"
#include "support/random_text.h"

namespace wendrill::testing {

// Equal seeds make equal displays.
class RandomDisplays : private RandomText {
 public:
  explicit RandomDisplays(std::uint32_t seed) : RandomText(seed) {}

  // What the reads of one display answer in turn: mostly one text, now and then one that changes between two reads. It
  // has elements of the kind among others, in rows or in lines, whole or mutilated.
  std::vector<std::u16string> Next(const DisplayKind& kind);

  // One display, not mutilated.
  std::u16string Display(const DisplayKind& kind);

 private:
  Text Number();
  Text Locator();
  Text Line(const DisplayKind& kind);
  Text ElementLine(const DisplayKind& kind);
  Text OtherLine();
  Text SpecialService();
  Text OtherService();
  Text Security();
  Text ManualTkt();
  Text MiscTktInfo();
  Text SUR();
  Text SP();
  Text ATX();
  Text MCO();
  Text ValidatingAirline();
  Text AirSequence();
};

}  // namespace wendrill::testing
