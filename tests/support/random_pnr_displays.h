// Generates random displays of PNRs with header, names and elements of every kind; some displays are mutated.
#pragma once

#include <cstdint>
#include <string>

#include "support/random_text.h"

namespace wendrill::testing {

// The generator is deterministic: equal seeds result in equal displays.
class RandomPnrDisplays : private RandomText {
 public:
  explicit RandomPnrDisplays(std::uint32_t seed) : RandomText(seed) {}

  // The next display: rows of 80 columns without line breaks, or lines. One display in three is mutated.
  std::u16string Next();

 private:
  Text Body();
  Text Element();
  Text Date() { return Digits(2) + Pick({u"JAN", u"FEB", u"JUN", u"JUN", u"DEC", u"ABC"}); }
  Text City() { return Pick({u"NCE", u"CDG", u"LHR", u"LYS"}); }

  unsigned number_ = 0;
};

}  // namespace wendrill::testing
