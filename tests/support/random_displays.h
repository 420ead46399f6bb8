// Displays as a host might print them, and as it never would.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "scan/display_scans.h"
#include "support/random_text.h"

namespace wendrill::testing {

// Equal seeds make equal displays.
class RandomDisplays : private RandomText {
 public:
  explicit RandomDisplays(std::uint32_t seed) : RandomText(seed) {}

  // What the reads of one display answer in turn: mostly one text, now and then one that changes between two reads. It
  // has elements of the kind among others, in rows or in lines, whole or mutilated.
  std::vector<std::u16string> Next(ScannedKind kind);

  // One display, not mutilated.
  std::u16string Display(ScannedKind kind);

 private:
  Text Number();
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
};

}  // namespace wendrill::testing
