#include "support/random_displays.h"

#include <algorithm>

#include "support/kind_references.h"

namespace wendrill::testing {
namespace {

const std::initializer_list<const char16_t*> kTraps = {u"/P1", u"/S2",     u",P3", u"PAX",  u"SSR",
                                                       u"OSI", u" FS ",    u"MCO", u"ATX ", u"* SP",
                                                       u"FHM", u"  * ES/", u"> ",  u"SUR",  u"|"};

}  // namespace

// The start of a line: an element number, with or without blanks before and after it; sometimes no number but up to
// four blanks.
std::u16string RandomDisplays::Number() {
  if (OneIn(20)) {
    return Blanks(4);
  }
  return Blanks(OneIn(3) ? 3 : 0) + Digits(OneIn(12) ? 3 : 2) + Blanks(OneIn(8) ? 2 : 0);
}

std::u16string RandomDisplays::Locator() {
  return Pick({u"ABC123", u"X", u"2ABCDE", u"ZZZZZZ", u"A1 B2C"});
}

std::u16string RandomDisplays::SpecialService() {
  const Text code = Pick({u"VGML", u"SEAT", u"NSST", u"RQST", u"SMST", u"NSSW", u"SMSA", u"FQTV", u"OTHS", u"DOCS"});
  const Text status = Pick({u"HK1", u"HN2", u"HK/", u"HK", u"UC1", u"XX9", u"HKA", u"TEXT", u"", u"KK12"});
  Text line = Number() + u" " + Pick({u"", u"*", u" *"}) + u"SSR " + code + u" " + Pick({u"SK", u"YY", u"1A", u"AFR"});
  line += u" " + status;
  for (unsigned n = Below(3); n > 0; --n) {
    line += Pick({u"/12A,P1", u"/3C", u"/SK123456", u" FREE TEXT", u"/7B,P2,P3", u"-MR", u"/S2", u"/", u" P1"});
  }
  return line + Associations();
}

std::u16string RandomDisplays::OtherService() {
  return (OneIn(6) ? Number() : Pick({u" 12", u"  5", u" 34", u"*99"})) + u" OSI " + Pick({u"YY", u"SK", u"1A"}) +
         u" " + Pick({u"CTCP 0123", u"VIP", u"", u"PARTY OF/PARIS"}) + Associations();
}

std::u16string RandomDisplays::Security() {
  Text line = Pick({u"  * ES/", u"  * ES/", u" * ES/", u"  * ES"});
  for (unsigned n = Below(8); n > 0; --n) {
    line += Pick({u"B", u"R", u"G"}) + u" " + Pick({u"PARXX0100", u"LON", u""}) + u" " + Pick({u"RW", u"", u"ALL"});
    line += OneIn(2) ? u"/" : u"";
  }
  return line;
}

std::u16string RandomDisplays::ManualTkt() {
  return (OneIn(5) ? Number() : Digits(4)) + u" " + Pick({u"FHM", u"FHE", u"FHA", u"FH", u"FHX", u"FA"}) + u" " +
         Pick({u"PAX ", u"", u"PAX", u"INF "}) + Digits(3) + u"-" + Digits(10) + Associations();
}

std::u16string RandomDisplays::MiscTktInfo() {
  Text line = Number() + u" FS " + Pick({u"PAX ", u"INF ", u"", u"PAX"});
  for (unsigned n = Below(4); n > 0; --n) {
    line += Pick({u"N-", u"S-", u"T-", u"X-"}) + Pick({u"100.00", u"TOUR", u"12345678901", u"", u" 7 "});
    line += Pick({u",", u",", u" ", u"/"});
  }
  return line + Associations();
}

std::u16string RandomDisplays::SUR() {
  return Digits(2) + u"|" + Blanks(2) + Pick({u"SUR", u"1 SUR", u"12 SUR YY", u"XXXXXXXXSUR", u"SU"}) + u"/" +
         Pick({u"1030", u"", u"0915"}) + u"/" + Pick({u"A", u"D", u"X", u""}) + u"/" + Pick({u"PARIS", u""}) + u"/" +
         Pick({u"RUE DE RIVOLI", u"", u"HOTEL"}) + Associations();
}

std::u16string RandomDisplays::ATX() {
  return Pick({u" ", u""}) + Digits(2) + Pick({u"  ", u" ", u"   "}) + u"ATX " + Pick({u"YY", u"1A", u""}) + u" " +
         Pick({u"HK1", u"HK", u"UC12"}) + u" " + Pick({u"PARLON", u"NCE", u""}) + u" " + Pick({u"12JUN", u"1JUN"}) +
         Pick({u"", u"-FREE TEXT", u" - A-B", u"-"});
}

std::u16string RandomDisplays::MCO() {
  if (OneIn(2)) {
    return Pick({u"   ", u"    ", u"      ", u"  "}) + Pick({u"", u"", u"13 ", u"4 "}) +
           Pick({u"FA", u"FP", u"FM", u"FB", u"FAX"}) + Pick({u" ", u"  ", u""}) +
           Pick({u"PAX 117-1234567890/ETSK", u"117-5", u"CASH", u"*M*5", u""}) + Associations();
  }
  return Digits(2) + Pick({u" ", u"  ", u""}) + u"MCO " + Pick({u"YY", u"SK", u""}) + u" " + Pick({u"PAR", u"LON"}) +
         u" " + Pick({u"12JUN", u""}) + Pick({u"/USD100.00", u"", u"/"}) + Pick({u"/*B-SERVICE", u"", u"/*"}) +
         Associations();
}

std::u16string RandomDisplays::SP() {
  return Blanks(3) + Pick({u"* SP", u"* SP ", u"*SP "}) + Pick({u"12JUN/0001AA-", u""}) + Locator() + Blanks(2);
}

std::u16string RandomDisplays::ValidatingAirline() {
  return Pick({u" 12", u"  5", u"123", u"> 1", u"   "}) + u" FV " + Pick({u"", u"PAX ", u"PAX *F*", u"INF ", u"PAX"}) +
         Pick({u"LH", u"AF", u"S", u""}) + Pick({u"", u"/S3", u"/S2-3", u"/S"}) + (OneIn(8) ? Associations() : Text());
}

std::u16string RandomDisplays::AirSequence() {
  return Pick({u" 18", u"  5", u"123", u"   "}) + u" FB " + Digits(10) + u" " + Pick({u"TTP", u"TTP/RT", u""}) +
         Pick({u"", u"/S3", u"/S2-3/P1", u"/P2"}) + (OneIn(8) ? Associations() : Text());
}

std::u16string RandomDisplays::ElementLine(const DisplayKind& kind) {
  struct Generator {
    const DisplayKind* kind;
    Text (RandomDisplays::*line)();
  };
  static constexpr Generator kGenerators[] = {
      {&kSpecialServiceElements, &RandomDisplays::SpecialService},
      {&kOtherServiceElements, &RandomDisplays::OtherService},
      {&kSecurityElements, &RandomDisplays::Security},
      {&kManualTktElements, &RandomDisplays::ManualTkt},
      {&kMiscTktInfoElements, &RandomDisplays::MiscTktInfo},
      {&kSURElements, &RandomDisplays::SUR},
      {&kSPElements, &RandomDisplays::SP},
      {&kATXSegments, &RandomDisplays::ATX},
      {&kMCOElements, &RandomDisplays::MCO},
      {&kValidatingAirlineElements, &RandomDisplays::ValidatingAirline},
      {&kAirSequenceNrElements, &RandomDisplays::AirSequence},
  };
  const auto* generator = std::ranges::find(kGenerators, &kind, &Generator::kind);
  return generator == std::end(kGenerators) ? Text(ReferenceOf(kind).element) : (this->*generator->line)();
}

std::u16string RandomDisplays::OtherLine() {
  switch (Below(6)) {
    case 0:
      return Blanks(9) + Pick({u"CONTINUED", u"TEXT/P1", u"/S2", u"SSR INSIDE", u"FA PAX 1"}) + Associations();
    case 1:
      return Blanks(OneIn(4) ? 80 : 5);
    case 2:
      return Number() + u" RM " + Pick({u"SSR", u"OSI", u"HELLO", u"PASSENGER>", u" FS ", u"MCO"});
    case 3:
      return u"RP/PARXX0100/PARXX0100            AA/SU  12JUN08/1030Z   ABC123";
    case 4:
      return Number() + u".SMITH/JOHN MR(ADT)";
    default:
      return ElementLine(*kDisplayKinds[Below(kDisplayKinds.size())]);
  }
}

std::u16string RandomDisplays::Line(const DisplayKind& kind) {
  if (OneIn(12)) {
    return Pick({u"", u"", u"> ", u">", u">  ", u"TEXT > "});
  }
  return OneIn(3) ? OtherLine() : ElementLine(kind);
}

std::u16string RandomDisplays::Display(const DisplayKind& kind) {
  const bool rowsOnly = ReferenceOf(kind).isReadInRows && !OneIn(6);
  const Text lineBreak = rowsOnly ? u"" : Pick({u"", u"", u"\r\n", u"\r\n", u"\n", u"\r"});
  const unsigned lines = Below(14);
  Text display;
  for (unsigned n = 0; n < lines; ++n) {
    Text line = n == 0 && !OneIn(4) ? Text(u"--- RLR ---") : Line(kind);
    const bool isLast = n + 1 == lines;
    if (lineBreak.empty() && !(isLast && OneIn(2))) {
      line.resize((line.size() + 79) / 80 * 80, u' ');
    }
    display += line + (isLast && OneIn(2) ? Text() : lineBreak);
  }
  return display;
}

std::vector<std::u16string> RandomDisplays::Next(const DisplayKind& kind) {
  std::vector<Text> readings = {OneIn(3) ? Mutated(Display(kind), kTraps) : Display(kind)};
  if (OneIn(6)) {
    readings.push_back(Mutated(readings.front(), kTraps));
  }
  if (OneIn(24)) {
    readings.push_back(Display(kind));
  }
  return readings;
}

}  // namespace wendrill::testing
