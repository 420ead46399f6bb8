// Generates random displays for the scanners: some as a host would show them, and some malformed.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "scan/display_kinds.h"
#include "support/random_text.h"

namespace wendrill::testing {

// The generator is deterministic: equal seeds result in equal displays.
class RandomDisplays : private RandomText {
 public:
  explicit RandomDisplays(std::uint32_t seed) : RandomText(seed) {}

  // The texts that successive reads of one display return: usually one text, sometimes several because the display
  // changes between two reads. The display has elements of the kind among others, in rows or in lines; one in three is
  // mutated.
  std::vector<std::u16string> Next(const DisplayKind& kind);

  // A display that is not mutated.
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
