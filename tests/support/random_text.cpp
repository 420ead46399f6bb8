#include "support/random_text.h"

namespace wendrill::testing {

std::u16string RandomText::Pick(Texts texts) {
  return *(texts.begin() + Below(static_cast<unsigned>(texts.size())));
}

std::u16string RandomText::Digits(unsigned most) {
  Text digits;
  for (unsigned n = 1 + Below(most); n > 0; --n) {
    digits += static_cast<char16_t>(u'0' + Below(10));
  }
  return digits;
}

std::u16string RandomText::Associations() {
  Text text;
  for (unsigned n = Below(4); n > 0; --n) {
    text += Pick({u"/P", u"/P", u"/S", u"/S", u",P", u"/", u" /P", u"/PAX"});
    text += OneIn(6) ? Pick({u"", u"A", u" ", u"PARIS"}) : Digits(2);
    text += Pick({u"", u"", u"", u",2", u"-3", u" "});
  }
  return text;
}

std::u16string RandomText::Mutated(Text text, Texts traps) {
  for (unsigned n = Below(4); n > 0; --n) {
    const std::size_t at = Below(static_cast<unsigned>(text.size()) + 1);
    switch (Below(4)) {
      case 0:
        text.erase(at, 1 + Below(5));
        break;
      case 1:
        text.insert(at, Pick(traps));
        break;
      case 2:
        text.insert(at, Pick({u"\r\n", u"\n", u"\r", u"\r\n\r\n", u" ", u"    ", u"*", u"/", u"\u00E9", u"9"}));
        break;
      default:
        if (at < text.size()) {
          text[at] = Pick({u" ", u"/", u"P", u"S", u"1", u"*", u">", u"-", u",", u"A"}).front();
        }
        break;
    }
  }
  return text;
}

}  // namespace wendrill::testing
