// Displays of PNRs as a host might print them: header, names and elements of every kind, whole or mutilated.
#pragma once

#include <cstdint>
#include <string>

#include "support/random_text.h"

namespace wendrill::testing {

// Equal seeds make equal displays.
class RandomPnrDisplays : private RandomText {
 public:
  explicit RandomPnrDisplays(std::uint32_t seed) : RandomText(seed) {}

  // In rows of 80 columns without breaks, or in lines; one in three mutilated.
  std::u16string Next();

 private:
  Text Body();
  Text Element();
  Text Date() { return Digits(2) + Pick({u"JAN", u"FEB", u"JUN", u"JUN", u"DEC", u"ABC"}); }
  Text City() { return Pick({u"NCE", u"CDG", u"LHR", u"LYS"}); }

  unsigned number_ = 0;
};

}  // namespace wendrill::testing
