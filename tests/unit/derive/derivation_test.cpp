// What the host prints in a display, and what the PNR object model then holds. Expected values are read off the rows.
#include "derive/derivation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <initializer_list>
#include <string>
#include <vector>

namespace wendrill::simulator {
namespace {

constexpr TextView kHeaderRow = u"RP/PARXX0100/NCEYY2100            AM/SU  12JUN08/0930Z   ABC123";
constexpr TextView kCreationRow = u"PARXX0100/0001AA/11JUN08";

using Rows = std::initializer_list<TextView>;

// Rows of 80 columns without breaks, as the host sends them; the header and creation rows come first.
std::u16string Display(Rows rows) {
  std::u16string display;
  for (const TextView row : {kHeaderRow, kCreationRow}) {
    display += std::u16string(row) + std::u16string(kRowWidth - row.size(), kBlank);
  }
  for (const TextView row : rows) {
    display += std::u16string(row) + std::u16string(kRowWidth - row.size(), kBlank);
  }
  return display;
}

class Derived {
 public:
  explicit Derived(std::u16string text, const DerivationSettings& settings = {})
      : display_(std::move(text)), pnr_(Derive(display_, settings)) {}
  explicit Derived(Rows rows, const DerivationSettings& settings = {}) : Derived(Display(rows), settings) {}

  const DerivedPnr& Pnr() const { return pnr_; }

  // The elements of a collection.
  std::vector<const DerivedElement*> In(TextView name) const {
    const auto* collection = std::ranges::find(kCollections, name, &Collection::name);
    std::vector<const DerivedElement*> elements;
    for (const DerivedElement& element : pnr_.elements) {
      if (Holds(*collection, element)) {
        elements.push_back(&element);
      }
    }
    return elements;
  }

  // The texts of a collection's elements.
  std::vector<std::u16string> Texts(TextView name) const {
    std::vector<std::u16string> texts;
    for (const DerivedElement* element : In(name)) {
      texts.emplace_back(element->Text());
    }
    return texts;
  }

  // A property of the only element of a collection; "-" for none, a date as 12JUN2008.
  std::u16string Only(TextView name, TextView property) const {
    const auto elements = In(name);
    EXPECT_EQ(elements.size(), 1U);
    return elements.empty() ? u"no element" : Content(*elements.front(), property);
  }

  static std::u16string Content(const DerivedElement& element, TextView property) {
    const auto place = std::ranges::find(element.type->properties, property, &Property::name);
    const DerivedContent& content =
        element.contents.at(static_cast<std::size_t>(place - element.type->properties.begin()));
    if (const auto* text = std::get_if<TextView>(&content)) {
      return std::u16string(*text);
    }
    if (const auto* date = std::get_if<Date>(&content)) {
      const CalendarDay day = DayOf(*date);
      return DecimalText(day.year) + u"-" + DecimalText(day.month) + u"-" + DecimalText(day.day);
    }
    return u"-";
  }

  // "row: text" of each warning.
  std::vector<std::string> Warnings() const {
    std::vector<std::string> texts;
    for (const DerivationWarning& warning : pnr_.warnings) {
      texts.push_back(std::to_string(warning.row) + ": " + ToUtf8(warning.text));
    }
    return texts;
  }

 private:
  std::u16string display_;
  DerivedPnr pnr_;
};

using Texts = std::vector<std::u16string>;
using Warned = std::vector<std::string>;

// --- Header and creation line ----------------------------------------------------------------------------------------

TEST(DerivedHeader, IsCutAtItsColumns) {
  const Derived derived(Rows{});
  const DerivedHeader& header = derived.Pnr().header;
  EXPECT_EQ(header.row, 1);
  EXPECT_EQ(header.line, kHeaderRow);
  EXPECT_EQ(header.officeId, u"PARXX0100");
  EXPECT_EQ(header.queueOffice, u"NCEYY2100");
  EXPECT_EQ(header.updateTime, u"0930");
  EXPECT_EQ(header.recordLocator, u"ABC123");
  EXPECT_EQ(header.date, DateOf({2008, 6, 12}));
  EXPECT_EQ(derived.Pnr().creation.office, u"PARXX0100");
  EXPECT_EQ(derived.Pnr().creation.agent, u"0001AA");
  EXPECT_EQ(derived.Pnr().creation.date, DateOf({2008, 6, 11}));
  EXPECT_EQ(derived.Warnings(), Warned());
}

TEST(DerivedHeader, MayComeAfterARowWithTags) {
  const Derived derived(u"--- TST AXR ---\r\n" + std::u16string(kHeaderRow) + u"\r\n");
  EXPECT_EQ(derived.Pnr().header.row, 2);
  EXPECT_EQ(derived.Pnr().header.recordLocator, u"ABC123");
  EXPECT_EQ(derived.Warnings(), Warned());
}

TEST(DerivedHeader, MayBeShort) {
  const Derived derived(u"RP/PARXX0100\r\n");
  EXPECT_EQ(derived.Pnr().header.officeId, u"PARXX0100");
  EXPECT_EQ(derived.Pnr().header.queueOffice, u"");
  EXPECT_EQ(derived.Pnr().header.recordLocator, u"");
  EXPECT_FALSE(derived.Pnr().header.date);
}

TEST(DerivedHeader, WithoutALocatorInItsColumnsHasNone) {
  EXPECT_EQ(Derived(u"RP/PARXX0100/NCEYY2100            AM/SU  12JUN08/0930Z  ABC123\n").Pnr().header.recordLocator,
            u"");
}

TEST(DerivedHeader, ThatIsMissingIsTold) {
  const Derived derived(u"NO HEADER\r\nAT ALL\r\n");
  EXPECT_EQ(derived.Pnr().header.row, 0);
  EXPECT_EQ(derived.Pnr().header.line, u"NO HEADER");
  EXPECT_EQ(derived.Warnings(), Warned({"1: the row is neither an element nor a name nor a continuation: \"NO HEADER\"",
                                        "2: the row is neither an element nor a name nor a continuation: \"AT ALL\"",
                                        "1: no row begins with \"RP/\": the display has no header"}));
}

TEST(DerivedHeader, OfNoDisplayIsEmpty) {
  EXPECT_EQ(Derived(u"").Pnr().header.line, u"");
  EXPECT_TRUE(Derived(u"").Pnr().elements.empty());
}

// --- Names -----------------------------------------------------------------------------------------------------------

TEST(DerivedNames, ShareARow) {
  const Derived derived({u"  1.SMITH/JOHN MR(ADT)   2.SMITH/ANN MRS(INF/SMITH LEA)   3.MILLER/TOM(CHD)"});
  EXPECT_EQ(derived.Texts(u"Names"),
            Texts({u"1.SMITH/JOHN MR(ADT)", u"2.SMITH/ANN MRS(INF/SMITH LEA)", u"3.MILLER/TOM(CHD)"}));
  const auto names = derived.In(u"Names");
  EXPECT_EQ(Derived::Content(*names[0], u"ElementNo"), u"1");
  EXPECT_EQ(Derived::Content(*names[0], u"LastName"), u"SMITH");
  EXPECT_EQ(Derived::Content(*names[0], u"Initial"), u"JOHN MR");
  EXPECT_EQ(Derived::Content(*names[1], u"Initial"), u"ANN MRS");
  EXPECT_EQ(Derived::Content(*names[2], u"LastName"), u"MILLER");
  EXPECT_EQ(Derived::Content(*names[2], u"Initial"), u"TOM");
  EXPECT_EQ(derived.Texts(u"Elements").size(), 3U);
}

TEST(DerivedNames, GoOnInTheNextRow) {
  const Derived derived({u"  1.SMITH/JOHN MR(ADT)   2.SMITH/ANN MRS(INF/SMITH", u"       LEA)", u"  3.MILLER/TOM"});
  EXPECT_EQ(derived.Texts(u"Names"),
            Texts({u"1.SMITH/JOHN MR(ADT)", u"2.SMITH/ANN MRS(INF/SMITH LEA)", u"3.MILLER/TOM"}));
}

TEST(DerivedNames, MayLackAFirstName) {
  const Derived derived({u"  1.CORPORATE"});
  EXPECT_EQ(derived.Only(u"Names", u"LastName"), u"CORPORATE");
  EXPECT_EQ(derived.Only(u"Names", u"Initial"), u"-");
}

TEST(DerivedNames, KeepANumberInParentheses) {
  EXPECT_EQ(Derived({u"  1.SMITH/LEA(CHD/AGE 12.A)   2.MILLER/TOM(CHD"}).Texts(u"Names"),
            Texts({u"1.SMITH/LEA(CHD/AGE 12.A)", u"2.MILLER/TOM(CHD"}));
}

TEST(DerivedNames, DoNotCountTheGroup) {
  const Derived derived({u"  0.25SCHOOL TRIP NICE NM: 2", u"  1.MARTIN/EVE MRS   2.MARTIN/LEO MR"});
  EXPECT_EQ(derived.Texts(u"Names"), Texts({u"1.MARTIN/EVE MRS", u"2.MARTIN/LEO MR"}));
  EXPECT_EQ(derived.Warnings(), Warned());
}

// --- Elements --------------------------------------------------------------------------------------------------------

TEST(DerivedElements, AreInTheCollectionOfTheirKeyword) {
  const std::pair<TextView, TextView> kRows[] = {
      {u"HTLElements", u"  1 HTL QT HK1 NCE 15JUN-18JUN/HALF BOARD"},
      {u"BillingAddresses", u"  1 AB SMITH AND SONS,1 PLACE MASSENA"},
      {u"ConfidentialRemarks", u"  1 RC PARXX0100-W/CREDIT LIMIT CHECKED"},
      {u"AutoTickets", u"  1 FA PAX 057-1234567890/ETAF/S4-5/P1"},
      {u"Commissions", u"  1 FM *M*5"},
      {u"FEElements", u"  1 FE PAX NONREF NONEND/S4-5/P1"},
      {u"OriginalIssues", u"  1 FO 057-1234567880PAR01JUN08/12345675"},
      {u"FormsOfPayment", u"  1 FP CASH"},
      {u"MailingAddresses", u"  1 AM SMITH JOHN,12 RUE DE LYON"},
      {u"Options", u"  1 OP PARXX0100/13JUN/8C1/CALL THE CUSTOMER"},
      {u"Contacts", u"  1 AP NCE 04 93 00 00 00-B"},
      {u"Tickets", u"  1 TK OK12JUN/PARXX0100"},
      {u"MISElements", u"  1 MIS QT HK1 LON 16JUN-THEATRE TICKETS"},
      {u"Remarks", u"  1 RM WINDOW SEATS WANTED"},
      {u"INSElements", u"  1 INS QT HK1 TRAVEL COVER EUR25.00"},
      {u"Cars", u"  1  CCR QC HK1 LHR 15JUN-18JUN ECMN"},
      {u"Hotels", u"  1  HHL QH HK1 LON IN15JUN OUT18JUN GBP90.00 DLY A1KRAC-DOUBLE X"},
      {u"AllAirSegments", u"  1  ARNK"},
      {u"AirSegments", u"  1  AF 123 Y 15JUN 7 NCECDG HK2      0900 1030"},
      {u"FlownAirSegments", u"  1  AF7700 Y 10JUN 2 NCECDG FLWN"},
      {u"OpenAirSegments", u"  1  AFOPEN Y 22JUN 7 LHRNCE"},
  };
  for (const auto& [collection, row] : kRows) {
    const Derived derived({row});
    EXPECT_EQ(derived.Texts(collection), Texts({std::u16string(Trimmed(row))})) << ToUtf8(collection);
    EXPECT_EQ(derived.Texts(u"Elements"), Texts({std::u16string(Trimmed(row))})) << ToUtf8(collection);
    EXPECT_EQ(derived.Warnings(), Warned()) << ToUtf8(collection);
    const bool isAir = collection.ends_with(u"AirSegments");
    std::size_t others = 0;
    for (const Collection& other : kCollections) {
      others += other.name != collection && other.id != kAllElements && !(isAir && other.id == kAllAirSegments)
                    ? derived.Texts(other.name).size()
                    : 0;
    }
    EXPECT_EQ(others, 0U) << ToUtf8(collection);
  }
}

TEST(DerivedElements, ThatOnlyTheDisplayHasAreInElementsAlone) {
  const Derived derived({u"  1 SSR VGML AF HK1/S5/P1", u"  2 *SSR WCHR AF HK1", u"  3 OSI AF VIP/P1",
                         u"  4 FB PAX 1200012345", u"  5 FS PAX T-ITX08/P1", u"  6 FV PAX AF", u" 7 FHM PAX 057-1",
                         u" 8 FHE PAX 057-1", u" 9 FHA PAX 057-1", u" 10 SUR/0830/A/NCE/12 RUE DE LYON",
                         u"11  ATX QT HK1 NCECDG 20JUN-TAXI", u"12MCO AF PAR 12JUN/EUR50.00"});
  EXPECT_EQ(derived.Texts(u"Elements").size(), 12U);
  EXPECT_EQ(derived.Warnings(), Warned());
  for (const DerivedElement* element : derived.In(u"Elements")) {
    EXPECT_EQ(element->collection, kInElementsAlone);
  }
  EXPECT_EQ(derived.In(u"Elements")[1]->keyword, u"SSR");
  EXPECT_EQ(derived.In(u"Elements")[11]->Number(), u"12");
}

TEST(DerivedElements, OfSeveralRowsAreJoinedByOneBlank) {
  EXPECT_EQ(
      Derived({u"  1  CCR QC HK1 CDG 15JUN-18JUN ECMN/DO-ORY", u"       /RG-EUR 45.00 UNL", u"    DY"}).Texts(u"Cars"),
      Texts({u"1  CCR QC HK1 CDG 15JUN-18JUN ECMN/DO-ORY /RG-EUR 45.00 UNL DY"}));
}

TEST(DerivedElements, MiscellaneousOnesAndFormsOfPaymentAreFilledTo80Columns) {
  EXPECT_EQ(Derived({u"  1 MIS QT HK1 LYS 21JUN-GUIDED TOUR", u"       BOAT", u"       BUS"}).Texts(u"MISElements"),
            Texts({u"1 MIS QT HK1 LYS 21JUN-GUIDED TOUR" + std::u16string(46, u' ') + u"BOAT" +
                   std::u16string(76, u' ') + u"BUS"}));
  EXPECT_EQ(Derived({u"  1 FP PAX CC4111", u"       /N1"}).Texts(u"FormsOfPayment"),
            Texts({u"1 FP PAX CC4111" + std::u16string(65, u' ') + u"/N1"}));
}

TEST(DerivedElements, OfADocumentHaveItsTicketingRows) {
  const Derived derived(
      {u" 1 MCO AF PAR 12JUN/EUR50.00/*BAGGAGE/P1", u"   FA 057-4000000001", u"    FP CASH", u"  2 RM X"});
  EXPECT_EQ(derived.Texts(u"Elements"),
            Texts({u"1 MCO AF PAR 12JUN/EUR50.00/*BAGGAGE/P1 FA 057-4000000001 FP CASH", u"2 RM X"}));
  EXPECT_EQ(derived.Warnings(), Warned());
}

TEST(DerivedElements, DoNotGoOnBehindABlankRow) {
  const Derived derived({u"  1 RM X", u"", u"       Y"});
  EXPECT_EQ(derived.Texts(u"Remarks"), Texts({u"1 RM X"}));
  EXPECT_EQ(derived.Warnings(),
            Warned({"5: the row is neither an element nor a name nor a continuation: \"       Y\""}));
}

TEST(DerivedElements, OfLinesWithBreaksAreTheSame) {
  const Derived derived(std::u16string(kHeaderRow) + u"\r\n  1 RM X\r\n       Y\r\n\r\n  2 AP Z\r\n");
  EXPECT_EQ(derived.Texts(u"Remarks"), Texts({u"1 RM X Y"}));
  EXPECT_EQ(derived.Texts(u"Contacts"), Texts({u"2 AP Z"}));
  EXPECT_EQ(derived.Warnings(), Warned());
}

// The carriers' codes are keywords too.
TEST(DerivedElements, WithTheFormOfAnAirSegmentAreNoneOfAKeyword) {
  const Derived derived(
      {u"  1  TK 123 Y 15JUN 7 ISTCDG HK1      0900 1030", u"  2  FMOPEN Y 22JUN 7 PVGCDG", u"  3 TK OK12JUN"});
  EXPECT_EQ(derived.Texts(u"AllAirSegments").size(), 2U);
  EXPECT_EQ(derived.Texts(u"Tickets"), Texts({u"3 TK OK12JUN"}));
  EXPECT_EQ(derived.Texts(u"Commissions"), Texts());
}

TEST(DerivedElements, WithThreeDigitsAreElementsToo) {
  EXPECT_EQ(Derived({u"123 AP NCE"}).Only(u"Contacts", u"ElementNo"), u"123");
}

// --- Properties ------------------------------------------------------------------------------------------------------

TEST(DerivedProperties, OfAirSegments) {
  const Derived derived({u"  1  AF 321 M 29JUN 7 NCELYS HK2      2330 0030+1"});
  EXPECT_EQ(derived.Only(u"AirSegments", u"BoardPoint"), u"NCE");
  EXPECT_EQ(derived.Only(u"AirSegments", u"OffPoint"), u"LYS");
  EXPECT_EQ(derived.Only(u"AirSegments", u"Class"), u"M");
  EXPECT_EQ(derived.Only(u"AirSegments", u"DepartureDate"), u"2008-6-29");
  EXPECT_EQ(derived.Only(u"AirSegments", u"DepartureTime"), u"2330");
  EXPECT_EQ(derived.Only(u"AirSegments", u"ArrivalTime"), u"0030");
  EXPECT_EQ(derived.Only(u"AirSegments", u"DayChange"), u"1");
}

TEST(DerivedProperties, OfSurfaceSegmentsAreNone) {
  const Derived derived({u"  1  ARNK"});
  EXPECT_EQ(derived.In(u"AllAirSegments").front()->kind, SegmentKind::Other);
  EXPECT_EQ(derived.Only(u"AllAirSegments", u"BoardPoint"), u"-");
}

TEST(DerivedProperties, OfCars) {
  const Derived derived({u"  1  CCR QC HK1 CDG 15JUN-18JUN ECMN/DO-ORY/CF-H123/VV/P1-2"});
  EXPECT_EQ(derived.Only(u"Cars", u"PickUpCity"), u"CDG");
  EXPECT_EQ(derived.Only(u"Cars", u"PickUpDate"), u"2008-6-15");
  EXPECT_EQ(derived.Only(u"Cars", u"DropOffDate"), u"2008-6-18");
  EXPECT_EQ(derived.Only(u"Cars", u"CarType"), u"ECMN");
  EXPECT_EQ(derived.Only(u"Cars", u"ConfirmationNo"), u"H123");
  EXPECT_EQ(std::get<PassengerNumbers>(derived.In(u"Cars").front()->contents[7]), PassengerNumbers({u"1", u"2"}));
}

TEST(DerivedProperties, OfHotels) {
  const Derived derived(
      {u"  1  HHL QH HK1 NCE IN15JUN OUT18JUN EUR120.00 DLY A1KRAC-BED GRAND PLAGE", u"       HOTEL/CF-98765/P1"});
  EXPECT_EQ(derived.Only(u"Hotels", u"City"), u"NCE");
  EXPECT_EQ(derived.Only(u"Hotels", u"CheckinDate"), u"2008-6-15");
  EXPECT_EQ(derived.Only(u"Hotels", u"CheckoutDate"), u"2008-6-18");
  EXPECT_EQ(derived.Only(u"Hotels", u"ConfirmationNo"), u"98765");
  EXPECT_EQ(derived.Only(u"Hotels", u"RoomRateCode"), u"A1KRAC");
}

TEST(DerivedProperties, OfTicketsCommissionsAndRemarks) {
  const Derived derived({u"  1 TK TL30JUN/PARXX0100", u"  2 FM *M*5", u"  3 RM PAY AT AIRPORT", u"       /S5/P1"});
  EXPECT_EQ(derived.Only(u"Tickets", u"Action"), u"TL");
  EXPECT_EQ(derived.Only(u"Tickets", u"Date"), u"2008-6-30");
  EXPECT_EQ(derived.Only(u"Commissions", u"Percent"), u"5");
  EXPECT_EQ(derived.Only(u"Remarks", u"FreeFlow"), u"PAY AT AIRPORT /S5/P1");
}

// --- Settings --------------------------------------------------------------------------------------------------------

TEST(DerivationSettings, DateIsTheDayNearWhichOthersLie) {
  const DerivationSettings settings = {.date = CalendarDay{2026, 11, 21}, .keywords = {}};
  EXPECT_EQ(Derived({u"  1 TK TL30JUN"}, settings).Only(u"Tickets", u"Date"), u"2027-6-30");
}

TEST(DerivationSettings, WithoutADateTheCreationLineHasIt) {
  const Derived derived(u"RP/PARXX0100\r\n" + std::u16string(kCreationRow) + u"\r\n  1 TK TL30JUN\r\n");
  EXPECT_EQ(derived.Only(u"Tickets", u"Date"), u"2008-6-30");
}

TEST(DerivationSettings, KeywordsComeBeforeTheTables) {
  const DerivationSettings settings = {.date = {}, .keywords = {{u"APE", 62}, {u"ZZ", kInElementsAlone}, {u"RM", 21}}};
  const Derived derived({u"  1 APE A@B.C", u"  2 ZZ TEXT", u"  3 RM TEXT"}, settings);
  EXPECT_EQ(derived.Texts(u"Contacts"), Texts({u"1 APE A@B.C"}));
  EXPECT_EQ(derived.Texts(u"ConfidentialRemarks"), Texts({u"3 RM TEXT"}));
  EXPECT_EQ(derived.Texts(u"Remarks"), Texts());
  EXPECT_EQ(derived.Texts(u"Elements").size(), 3U);
  EXPECT_EQ(derived.Warnings(), Warned());
}

TEST(DerivationSettings, KeywordsBringTheCollectionsThatKeywordsCanBring) {
  EXPECT_EQ(CollectionOfKeywords(u"Contacts"), 62);
  EXPECT_EQ(CollectionOfKeywords(u"Cars"), 14);
  for (const TextView name : {u"Names", u"Elements", u"OpenAirSegments", u"Nothing", u""}) {
    EXPECT_EQ(CollectionOfKeywords(name), kInElementsAlone) << ToUtf8(name);
  }
}

// --- Warnings --------------------------------------------------------------------------------------------------------

TEST(DerivationWarnings, RowOfNoKind) {
  EXPECT_EQ(Derived({u"  1 RM X", u"HELLO", u"  2 RM Y"}).Warnings(),
            Warned({"4: the row is neither an element nor a name nor a continuation: \"HELLO\""}));
}

TEST(DerivationWarnings, ImpossibleDate) {
  EXPECT_EQ(Derived({u"  1  AF 123 Y 31JUN 7 NCECDG HK2", u"  2 TK TL30FEB"}).Warnings(),
            Warned({"3: \"31JUN\" is no date", "4: \"30FEB\" is no date"}));
}

TEST(DerivationWarnings, DateInNoYear) {
  EXPECT_EQ(Derived({u"  1  AF 123 Y 15JUN 8 NCECDG HK2", u"  2 TK TL29FEB"}).Warnings(),
            Warned({"3: in no year near the date of the display \"15JUN\" is day 8 of the week",
                    "4: no year near the date of the display has a \"29FEB\""}));
}

TEST(DerivationWarnings, DateOfADisplayWithoutDate) {
  EXPECT_EQ(Derived(u"RP/PARXX0100\r\n  1 TK TL30JUN\r\n").Warnings(),
            Warned({"2: the year of \"30JUN\" is not known: the display has no date"}));
}

TEST(DerivationWarnings, NumberTwiceAndGap) {
  EXPECT_EQ(
      Derived({u"  1 RM X", u"  1 RM Y", u"  3 RM Z", u"  2 RM Z"}).Warnings(),
      Warned({"4: the number 1 is there twice", "5: the number 3 comes after 1", "6: the number 2 comes after 3"}));
}

TEST(DerivationWarnings, UnknownKeyword) {
  const Derived derived({u"  1 APE A@B.C", u"  2 (TEXT)"});
  EXPECT_EQ(derived.Warnings(), Warned({"3: unknown keyword \"APE\": the element is in Elements alone",
                                        "4: the element has no keyword: it is in Elements alone"}));
  EXPECT_EQ(derived.Texts(u"Elements").size(), 2U);
  EXPECT_EQ(derived.Texts(u"Contacts").size(), 0U);
}

TEST(DerivationWarnings, Prompt) {
  EXPECT_EQ(Derived({u"  1 RM X", u">"}).Warnings(),
            Warned({"4: the row has the prompt \"> \": the counts of SSR and FS will be 0, as required"}));
  EXPECT_EQ(Derived({u"  1 RM X > Y", u">"}).Warnings().size(), 1U);
}

// The scans end at the first empty line.
TEST(DerivationWarnings, PromptAfterAnEmptyLineIsHarmless) {
  EXPECT_EQ(Derived(std::u16string(kHeaderRow) + u"\r\n  1 RM X\r\n\r\n> \r\n").Warnings(), Warned());
}

TEST(DerivationWarnings, NoneForRowsThatOnlyTheDisplayHas) {
  EXPECT_EQ(
      Derived({u"* SP 11JUN/AMSU/PARXX0100-QRS456", u"  1 RM X", u"  * ES/G PARAG1 ALL/R LONAG2 READ"}).Warnings(),
      Warned());
  EXPECT_EQ(Derived({u"  1 RM X", u"  * ES/", u"G PARAG1 ALL", u"R LONAG2 READ"}).Warnings(), Warned());
  EXPECT_EQ(Derived({u"  * ES/", u"G 1", u"G 2", u"G 3", u"G 4", u"G 5"}).Warnings().size(), 1U);
}

// --- Cost ------------------------------------------------------------------------------------------------------------

// One element of very many rows, and very many names in one row: each is read once.
TEST(Derivation, ReadsLongTextsOnce) {
  std::u16string display = std::u16string(kHeaderRow) + u"\n  1 RM X\n";
  std::u16string names = u"  2.SMITH/ANN";
  for (int row = 0; row < 30000; ++row) {
    display += u"       CONTINUED\n";
    names += u" 2.SMITH/ANN";
  }
  const Derived derived(display + names);
  EXPECT_EQ(derived.In(u"Remarks").front()->Text().size(), 6U + 30000 * 10);
  EXPECT_EQ(derived.In(u"Names").size(), 30001U);
}

}  // namespace
}  // namespace wendrill::simulator
