#include "support/random_pnr_displays.h"

#include <algorithm>

namespace wendrill::testing {

std::u16string RandomPnrDisplays::Element() {
  switch (Below(24)) {
    case 0:
      return u" " + Text(Pick({u"AF", u"U2", u"SK", u"TK"})) + Pick({u" 123", u"7700", u"OPEN", u"12A"}) + u" Y " +
             Date() + u" " + Digits(1) + u" " + City() + City() + u" HK1      0900 1030" + Pick({u"", u"+1", u"-1"});
    case 1:
      return u" AF7700 Y " + Date() + u" 2 " + City() + City() + u" FLWN";
    case 2:
      return u" AFOPEN Y " + Date() + u" 7 " + City() + City();
    case 3:
      return u" ARNK";
    case 4:
      return u" CCR QC HK1 " + City() + u" " + Date() + u"-" + Date() + u" ECMN/DO-LGW/RG-GBP 29.50 DY" +
             Pick({u"", u"/CF-H123"}) + Associations();
    case 5:
      return u" HHL QH HK1 " + City() + u" IN" + Date() + u" OUT" + Date() + u" EUR9 DLY A1KRAC-BED HOTEL" +
             Pick({u"/CF-1", u""}) + Associations();
    case 6:
      return u"TK " + Text(Pick({u"OK", u"TL", u"XL"})) + Date() + u"/PARXX0100";
    case 7:
      return u"FM " + Text(Pick({u"*M*5", u"7.50", u"PAX *M*0", u"X"})) + Associations();
    case 8:
      return u"FP " + Text(Pick({u"CASH", u"PAX CC4111/X1210", u"PAX"})) + Associations();
    case 9:
      return u"MIS QT HK1 LON " + Date() + u"-THEATRE" + Associations();
    case 10:
      return u"SUR/0830/A/NCE/RUE" + Associations();
    case 11:
      return u"RM " + Text(Pick({u"TEXT", u"SSR", u"TEXT > MORE", u"NM: 2"})) + Associations();
    case 12:
      return Text(Pick({u"ZZ", u"APE", u"1", u"(X", u"*", u""})) + u" TEXT";
    default:
      return Text(Pick({u"AP", u"RC",  u"AM",  u"AB",  u"OP",   u"FO",  u"FA",  u"FE",  u"FB",  u"FS",
                        u"FV", u"HTL", u"INS", u"SSR", u"*SSR", u"OSI", u"FHM", u"FHE", u"MCO", u" ATX"})) +
             u" PAX TEXT" + Associations();
  }
}

std::u16string RandomPnrDisplays::Body() {
  if (OneIn(8)) {
    return Blanks(9) + Pick({u"CONTINUED", u"/P1", u"2.SMITH/ANN", u"* SP 1", u"HELLO", u"> ", u"  * ES/G X/R Y", u""});
  }
  if (OneIn(20)) {
    return u"  0.25TRIP NM: 2";
  }
  number_ = OneIn(12) ? Below(40) : number_ + 1;
  Text number;
  for (unsigned rest = number_; rest > 0 || number.empty(); rest /= 10) {
    number.insert(number.begin(), static_cast<char16_t>(u'0' + rest % 10));
  }
  number.insert(0, std::size_t{3} - std::min<std::size_t>(number.size(), 3), u' ');
  if (number_ < 4 && !OneIn(4)) {
    return number + u"." + Pick({u"SMITH/JOHN MR(ADT)", u"SMITH", u"MILLER/TOM(CHD)   9.DOE/EVE", u"A/B(INF/C 3.D"});
  }
  return number + (OneIn(30) ? u"" : u" ") + Element();
}

std::u16string RandomPnrDisplays::Next() {
  const Text lineBreak = Pick({u"", u"", u"", u"\r\n", u"\n"});
  Text display;
  const auto add = [&](Text row) {
    row.resize(std::min<std::size_t>(row.size(), 80));
    if (lineBreak.empty()) {
      row.resize(80, u' ');
    }
    display += row + lineBreak;
  };
  number_ = 0;
  if (OneIn(6)) {
    add(u"--- TST AXR ---");
  }
  if (!OneIn(10)) {
    add(u"RP/PARXX0100/PARXX0100            AM/SU  12JUN08/0930Z   ABC123");
  }
  if (!OneIn(6)) {
    add(u"PARXX0100/0001AA/12JUN08");
  }
  for (unsigned rows = Below(20); rows > 0; --rows) {
    add(Body());
  }
  return OneIn(3) ? Mutated(display, {u"NM:", u"> ", u"RP/", u" 3.", u"/P1"}) : display;
}

}  // namespace wendrill::testing
