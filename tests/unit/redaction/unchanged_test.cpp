// Hiding what is hidden changes nothing, for random texts: a new Redactor that is given the hidden texts in the same
// order returns them. And what was learnt does not survive.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "support/hidden_again.h"
#include "support/random_pnr_displays.h"

namespace wendrill::redaction {
namespace {

class RandomTexts : private testing::RandomText {
 public:
  explicit RandomTexts(std::uint32_t seed) : RandomText(seed), displays_(seed) {}

  std::u16string Next() {
    switch (Below(4)) {
      case 0:
        return displays_.Next();
      case 1:
        return Display();
      default:
        return Mutated(Line(), {u"/", u"(INF", u"\n", u"\"", u";", u"RM", u" ", u"1", u".", u"    ", u"\u00E9"});
    }
  }

 private:
  Text Name() {
    return Pick({u"SMITH", u"Smith", u"JOHN", u"ANN",  u"QBBBB", u"QBB",     u"OPEN",
                 u"MIA",   u"JAN",   u"MORE", u"PAGE", u"QBBC",  u"LEE",     u"M\u00DCLLER",
                 u"XBB",   u"MISS",  u"CASH", u"RM",   u"SSR",   u"DOE-ROE", u"O'BRIEN"});
  }
  Text FullName() { return Name() + u"/" + Name() + Pick({u"", u" MR", u" MRS", u"(CHD/12JAN01)", u"(INFDOE/EVE)"}); }
  Text Card() {
    return Pick({u"4111111111111111", u"4111 1111 1111 1111", u"3782-822463-10005", u"4000000000000010",
                 u"4000000000000003", u"0000000000000000", u"057-1234567890", u"4111 1111 1111 1111 1210",
                 u"41111111111111111111", u"4000 0000 0000 0002"});
  }
  Text Phone() { return Pick({u"0612345678", u"04 93 00 12 00", u"0000000000", u"00 33 4 93 00 12 00", u"12"}); }
  Text Words() { return Name() + u" " + Digits(3) + u" " + Name() + Pick({u"", u"/P1", u"/S2-3/P1", u"/X"}); }

  Text Line() {
    switch (Below(14)) {
      case 0:
        return u"NM1" + FullName() + u"1" + FullName();
      case 1:
        return u"RM" + Words() + u";" +
               Pick({u"ET",
                     u" "
                     u"X",
                     u"RM"}) +
               Words();
      case 2:
        return Pick({u"AP ", u"APE-", u"AP", u"ap "}) + Phone() + u" " + Words();
      case 3:
        return u"SRDOCS AF HK1-P-FRA-12AB34567-FRA-12JUL76-M-23AUG16-" + Name() + u"-" + Name() + u"/P1";
      case 4:
        return u"FPCC" + Card() + u"/1210;" + Words();
      case 5:
        return Pick({u"RT/", u"RT12JUN-"}) + Name();
      case 6:
        return u"got \"" + FullName() + u"\", \"RM" + Words() + u"\" " + Phone();
      case 7:
        return Digits(2) + u"." + FullName();
      case 8:
        return Digits(1) + u" " + FullName() + u"   ABC123";
      case 9:
        return Digits(2) +
               Pick({u" RM ", u" OSI AF ", u" SSR FQTV AF HK1/", u" AP ", u" FP ", u"  AFOPEN Y 22JUN 7 "}) + Words() +
               Card();
      case 10:
        return Pick({u"OS AF ", u"AM", u"AB ", u"RC"}) + Words();
      case 11:
        return u"CALL " + FullName() + u" " + Phone() + u" " + Card();
      case 12:
        return u">" + Text(49, u' ') + u"PAGE  1/ 2 " + Name();
      default:
        return Words();
    }
  }

  // Lines, or rows of 80 columns.
  Text Display() {
    const bool isInRows = OneIn(2);
    Text display;
    for (unsigned rows = 1 + Below(8); rows > 0; --rows) {
      Text row = (OneIn(4) ? Text(4 + Below(4), u' ') : Blanks(3)) + Line();
      if (isInRows) {
        row.resize((row.size() + kRowWidth - 1) / kRowWidth * kRowWidth, u' ');
      }
      display += row + (isInRows ? u"" : Pick({u"\n", u"\r\n"}));
    }
    return display;
  }

  testing::RandomPnrDisplays displays_;
};

std::string WrongInRandomTexts(std::uint32_t seed, const std::set<Kind>& kept) {
  RandomTexts random(seed);
  std::vector<std::u16string> texts;
  for (int i = 0; i < 12; ++i) {
    texts.push_back(random.Next());
  }
  return testing::WrongInHiding(texts, kept);
}

TEST(HidingAgain, ChangesNothing) {
  for (std::uint32_t seed = 1; seed <= 400; ++seed) {
    ASSERT_EQ(WrongInRandomTexts(seed, {}), "") << "seed " << seed;
  }
}

TEST(HidingAgain, ChangesNothingWhateverIsKept) {
  const Kind kKinds[] = {Kind::Names, Kind::Cards, Kind::Contacts, Kind::Remarks};
  for (std::uint32_t seed = 1; seed <= 320; ++seed) {
    std::set<Kind> kept;
    for (unsigned bit = 0; bit < std::size(kKinds); ++bit) {
      if ((seed >> bit & 1U) != 0) {
        kept.insert(kKinds[bit]);
      }
    }
    ASSERT_EQ(WrongInRandomTexts(seed, kept), "") << "seed " << seed;
  }
}

}  // namespace
}  // namespace wendrill::redaction
