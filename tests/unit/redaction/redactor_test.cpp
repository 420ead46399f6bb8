// What is hidden, rule by rule. The first name of five letters becomes QBBBB, the next QBBBC; the first number of a
// card of 16 digits 4000000000000002.
#include "redaction/redactor.h"

#include <gtest/gtest.h>

#include <string>

namespace wendrill::redaction {
namespace {

using Tokens = std::set<std::u16string>;

std::u16string Hidden(TextView text) {
  return Redactor().Hide(text);
}

// A display with a header row, in lines.
std::u16string Display(TextView rows) {
  return u"RP/PARXX0100/PARXX0100            AM/SU  12JUN08/0930Z   ABC123\n" + std::u16string(rows);
}

std::u16string HiddenRows(TextView rows) {
  return Hidden(Display(rows)).substr(Display(u"").size());
}

// --- Names -----------------------------------------------------------------------------------------------------------

TEST(HiddenNames, AreThoseOfNameRows) {
  EXPECT_EQ(HiddenRows(u"  1.SMITH/JOHN MR(ADT)   2.SMITH/ANN MRS(CHD/12JAN01)\n"),
            u"  1.QBBBB/QBBB MR(ADT)   2.QBBBB/QBB MRS(CHD/12JAN01)\n");
}

TEST(HiddenNames, AreThoseOfInfants) {
  EXPECT_EQ(HiddenRows(u"  1.SMITH/ANN MRS(INF/MILLER LEA)   2.LEE/EVE(INFDOE/BABY)\n"),
            u"  1.QBBBB/QBB MRS(INF/QBBBBB QBC)   2.QBD/QBF(INFQBG/QBBB)\n");
  EXPECT_EQ(HiddenRows(u"  1.SMITH/ANN MRS(INF/MILLER\n       LEA/12JAN01)\n"),
            u"  1.QBBBB/QBB MRS(INF/QBBBBB\n       QBC/12JAN01)\n");
}

TEST(HiddenNames, AreNoTypesOfPassengers) {
  EXPECT_EQ(HiddenRows(u"  1.SMITH/ANN(CHD/AGE 12)   2.LEE/TOM(STU\n  8 OP AGE STU\n"),
            u"  1.QBBBB/QBB(CHD/AGE 12)   2.QBC/QBD(STU\n  8 OP AGE STU\n");
}

TEST(HiddenNames, AreThoseOfEntries) {
  EXPECT_EQ(Hidden(u"NM1SMITH/JOHN MR"), u"NM1QBBBB/QBBB MR");
  EXPECT_EQ(Hidden(u"NM2SMITH/JOHN MR/ANN MRS1MILLER/TOM(CHD/12JAN01)"),
            u"NM2QBBBB/QBBB MR/QBB MRS1QBBBBB/QBC(CHD/12JAN01)");
  EXPECT_EQ(Hidden(u"NM1LEE/ANN MRS(INFDOE/BABY)"), u"NM1QBB/QBC MRS(INFQBD/QBBB)");
  EXPECT_EQ(Hidden(u"RT/SMITH"), u"RT/QBBBB");
  EXPECT_EQ(Hidden(u"RT12JUN-SMITH"), u"RT12JUN-QBBBB");
  EXPECT_EQ(Hidden(u"ET;NM1SMITH/J"), u"ET;NM1QBBBB/J");
  EXPECT_EQ(Hidden(u"RTMARTIN"), u"RTMARTIN");  // a locator
}

TEST(HiddenNames, AreThoseOfLists) {
  EXPECT_EQ(Hidden(u"TICKET QUEUE           PARXX0100   12JUN08\n   1 SMITH/JOHN MR        ABC123\n   2 LEE/TOM   X\n"),
            u"TICKET QUEUE           PARXX0100   12JUN08\n   1 QBBBB/QBBB MR        ABC123\n   2 QBB/QBC   X\n");
  EXPECT_EQ(Hidden(u"ISSUED TO SMITH/JOHN PAUL MR TODAY"), u"ISSUED TO QBBBB/QBBB QBBC MR TODAY");
  EXPECT_EQ(Hidden(u"SEE SUR/ABC AND SMITH/JOHN  MR"), u"SEE SUR/ABC AND SMITH/JOHN  MR");
}

TEST(HiddenNames, AreThoseOfPassports) {
  EXPECT_EQ(HiddenRows(u"  8 SSR DOCS AF HK1/P/FRA/12AB34567/FRA/12JUL76/M/23AUG16/SMITH/JOHN PAUL/P1\n"),
            u"  8 SSR DOCS AF HK1/P/FRA/00AB00000/FRA/00JUL00/M/00AUG00/QBBBB/QBBB QBBC/P1\n");
  EXPECT_EQ(HiddenRows(u"  8 SSR DOCS AF HK1 P/FRA/12AB34567/FRA/12JUL76/M/23AUG16/SMITH\n       /JOHN/P1\n"),
            u"  8 SSR DOCS AF HK1 P/FRA/00AB00000/FRA/00JUL00/M/00AUG00/QBBBB\n       /QBBB/P1\n");
  EXPECT_EQ(Hidden(u"SRDOCS AF HK1-P-FRA-12AB34567-FRA-12JUL76-M-23AUG16-SMITH-JOHN/P1"),
            u"SRDOCS AF HK1-P-FRA-00AB00000-FRA-00JUL00-M-00AUG00-QBBBB-QBBB/P1");
  EXPECT_EQ(Hidden(u"SR DOCS AF HK1 ////12JUL76/M//SMITH/JOHN"), u"SR DOCS AF HK1 ////00JUL00/M//QBBBB/QBBB");
}

TEST(HiddenNames, AreHiddenEverywhereOnceTheyAreLearnt) {
  Redactor redactor;
  EXPECT_EQ(redactor.Hide(u"CALL SMITH"), u"CALL SMITH");
  redactor.Learn(u"1.SMITH/JOHN MR");
  EXPECT_EQ(redactor.Hide(u"CALL SMITH"), u"CALL QBBBB");
  EXPECT_EQ(redactor.Hide(u"Smith's file, smith, SMITH: not SMITHS"), u"Qbbbb's file, qbbbb, QBBBB: not SMITHS");
  EXPECT_EQ(redactor.Hide(u"BLACKSMITH"), u"BLACKSMITH");
  EXPECT_EQ(redactor.Hide(u"SMITH75"), u"QBBBB75");
  EXPECT_EQ(redactor.Hide(u"APE-JOHN.SMITH75@TRAVEL.COM"), u"APE-QBBB.QBBBB00@TRAVEL.COM");
}

TEST(HiddenNames, HaveTwoLettersAtLeastAndThreeToBeHidden) {
  EXPECT_EQ(Hidden(u"NM1LI/JO MR"), u"NM1LI/JO MR");
  EXPECT_EQ(Hidden(u"NM1LIU/JOE"), u"NM1QBB/QBC");
}

TEST(HiddenNames, MayHaveSmallLettersAndAccents) {
  EXPECT_EQ(Hidden(u"nm1Smith/John mr"), u"nm1Qbbbb/Qbbb mr");
  Redactor redactor;
  EXPECT_EQ(redactor.Hide(u"NM1M\u00DCLLER/Ren\u00E9e"), u"NM1QBBBBB/Qbbbb");
  EXPECT_EQ(redactor.Hide(u"m\u00FCller"), u"qbbbbb");
}

TEST(HiddenNames, AreNoTitles) {
  EXPECT_EQ(Hidden(u"NM1SMITH/JOHN DR MSTR MISS"), u"NM1QBBBB/QBBB DR MSTR MISS");
  EXPECT_EQ(Hidden(u"NM1SMITH/EXST"), u"NM1QBBBB/EXST");
}

// --- The host's own words --------------------------------------------------------------------------------------------

TEST(WordsOfTheHost, StayWhereTheHostSaysThem) {
  Redactor redactor;
  redactor.Learn(u"NM1OPEN/SSR MR1PAGE/MORE1CASH/JAN1MIA/PAX1END/PARXX1MIS/FQTV1DISPLAY/ABC");
  EXPECT_EQ(
      redactor.Hide(Display(u"  4  AFOPEN Y 22JUN 7 LHRNCE OPEN\n  5 SSR FQTV AF HK1 OPEN\n  6 FP PAX CASH/CASH\n")),
      Display(u"  4  AFOPEN Y 22JUN 7 LHRNCE QBBB\n  5 SSR FQTV AF HK1 QBBB\n  6 FP PAX CASH/QBBF\n"));
  EXPECT_EQ(redactor.Hide(u"  7  HHL QH HK1 MIA IN15JAN OUT18JAN/MIA\n  8 MIS QT HK1 PAR 15JAN-JAN\n"),
            u"  7  HHL QH HK1 MIA IN15JAN OUT18JAN/QBD\n  8 MIS QT HK1 PAR 15JAN-QBC\n");
  const std::u16string page = u">" + std::u16string(49, u' ') + u"PAGE  1/ 3\n";
  EXPECT_EQ(redactor.Hide(page), page);
  EXPECT_EQ(redactor.Hide(u"MORE     \n"), u"MORE     \n");
  EXPECT_EQ(redactor.Hide(u"ON TIME\nEND OF DISPLAY\n"), u"ON TIME\nEND OF DISPLAY\n");
  EXPECT_EQ(redactor.Hide(u"SEE THE NEXT PAGE\n"), u"SEE THE NEXT QBBC\n");
}

TEST(WordsOfTheHost, AreNotAnyAfterANumber) {
  Redactor redactor;
  redactor.Learn(u"NM1SMITH/JOHN");
  EXPECT_EQ(redactor.Hide(u"   1 SMITH JOHN     ABC123\n"), u"   1 QBBBB QBBB     ABC123\n");
}

TEST(WordsOfTheHost, AreNoMonthWhereANameIs) {
  EXPECT_EQ(Hidden(u"NM1JAN/PETER"), u"NM1QBB/QBBBB");
  EXPECT_EQ(Hidden(u"NM1MAY/JUN 12JAN01"), u"NM1QBB/QBC 12JAN01");
}

// --- Cards -----------------------------------------------------------------------------------------------------------

TEST(HiddenCards, BecomeTestNumbersOfTheSameForm) {
  Redactor redactor;
  EXPECT_EQ(redactor.Hide(u"  8 FP PAX CC4111111111111111/N123456/X1210/S5-6/P1\n"),
            u"  8 FP PAX CC4000000000000002/N123456/X1210/S5-6/P1\n");
  EXPECT_EQ(redactor.Hide(u"FPCC4111 1111-1111 1111/1210"), u"FPCC4000 0000-0000 0002/1210");
  EXPECT_EQ(redactor.Hide(u"5500000000000004"), u"4000000000000010");
  EXPECT_EQ(redactor.Hide(u"3782 822463 10005"), u"4000 000000 00006");
  EXPECT_EQ(redactor.Hide(u"  8 FA PAX 057-1234567890/ETAF\n"), u"  8 FA PAX 057-1234567890/ETAF\n");
  EXPECT_EQ(redactor.Hide(u"0000000000000000"), u"0000000000000000");
  EXPECT_EQ(redactor.Tokens(),
            (Tokens{u"4111111111111111", u"4111 1111-1111 1111", u"5500000000000004", u"3782 822463 10005"}));
}

TEST(HiddenCards, MayGoOnInTheNextRow) {
  EXPECT_EQ(HiddenRows(u"  8 FP CC41111111\n       11111111/1210\n"), u"  8 FP CC40000000\n       00000002/1210\n");
}

TEST(HiddenCards, DoNotGoOnInAContact) {
  EXPECT_EQ(HiddenRows(u"  8 OP 12345\n  9 AP 1234 567 8901234-1234\n"),
            u"  8 OP 12345\n  9 AP 0000 000 0000000-0000\n");
  Redactor redactor;
  EXPECT_EQ(redactor.Hide(u"AP PAR 12345\n       11111111\n"), u"AP PAR 00000\n       11111111\n");
  EXPECT_TRUE(redactor.Tokens().empty());
}

TEST(HiddenCards, AreHiddenInALongEntry) {
  const std::u16string before = u"FPAB" + std::u16string(70, u'-');
  EXPECT_EQ(Hidden(u"RT" + before + u"4111111111111111").substr(76), u"4000000000000002");
}

// --- Contacts --------------------------------------------------------------------------------------------------------

TEST(HiddenContacts, HaveNoDigits) {
  EXPECT_EQ(HiddenRows(u" 18 AP NCE 04 93 00 12 00-B\n 19 AP MOBILE 0612345678\n       /P1-2\n"),
            u" 18 AP NCE 00 00 00 00 00-B\n 19 AP MOBILE 0000000000\n       /P1-2\n");
  EXPECT_EQ(HiddenRows(u" 18 APE A1@B2.COM/P1\n 19 SSR FQTV U2 HK12/U21234567890/P1\n"),
            u" 18 APE A0@B0.COM/P1\n 19 SSR FQTV U2 HK12/U00000000000/P1\n");
  EXPECT_EQ(Hidden(u"AP PAR 0142334455-H/P2"), u"AP PAR 0000000000-H/P2");
  EXPECT_EQ(Hidden(u"SRFQTV AF-AF1234567890/P1"), u"SRFQTV AF-AF0000000000/P1");
}

TEST(HiddenContacts, AreHiddenElsewhereWhenTheyAreLong) {
  Redactor redactor;
  redactor.Learn(u"18 AP NCE 04 93 00 12 00-B");
  redactor.Learn(u"19 AP MOBILE 0612345678 12 99");
  EXPECT_EQ(redactor.Hide(u"CALL 04-93-00-12-00 OR 0493001200"), u"CALL 00-00-00-00-00 OR 0000000000");
  EXPECT_EQ(redactor.Hide(u"CALL 0612345678 NOT 12 99"), u"CALL 0000000000 NOT 12 99");
}

// --- Free text -------------------------------------------------------------------------------------------------------

TEST(HiddenFreeText, IsX) {
  EXPECT_EQ(HiddenRows(u" 26 OSI AF VIP, SMITH/P1\n 28 RM PAID 12.50/S5/P1\n       AT 9/S2-3\n 30 RC PAR-W/LIMIT\n"),
            u" 26 OSI AF XXXX XXXXX/P1\n 28 RM XXXX XXXXX/S5/P1\n       XX X/S2-3\n 30 RC XXXXXXXXXXX\n");
  EXPECT_EQ(HiddenRows(u" 42 AM SMITH,12 ROAD\n 43 AB SMITH,NICE\n 44 OP CALL\n"),
            u" 42 AM XXXXXXXX XXXX\n 43 AB XXXXXXXXXX\n 44 OP CALL\n");
}

TEST(HiddenFreeText, LeavesItsKeywordEvenWhenItIsGluedToIt) {
  EXPECT_EQ(HiddenRows(u" 28 RM*TEXT\n 29 RMH/12 TEXT/P1\n"), u" 28 RM*XXXX\n 29 RMH/XX XXXX/P1\n");
  EXPECT_EQ(Hidden(u"RM*TEXT"), u"RM*XXXX");
  const std::u16string hidden = HiddenRows(u" 28 RM1TEXT SMITH/JOHN MR/P1\n");
  EXPECT_EQ(hidden, u" 28 RMXXXXX XXXXXXXXXX XX/P1\n");
  EXPECT_EQ(HiddenRows(hidden), hidden);
  EXPECT_EQ(HiddenRows(u" 28 RMXXXXX/P1\n"), u" 28 RMXXXXX/P1\n");
}

TEST(HiddenFreeText, OfEntriesIsX) {
  EXPECT_EQ(Hidden(u"RMPAY AT AIRPORT/S4/P1"), u"RMXXX XX XXXXXXX/S4/P1");
  EXPECT_EQ(Hidden(u"RMA;RM B;ET"), u"RMX;RM X;ET");
  EXPECT_EQ(Hidden(u"RCPARXX-A;B"), u"RCXXXXXXXXX");
  EXPECT_EQ(Hidden(u"OS AF GOOD"), u"OS AF XXXX");
  EXPECT_EQ(Hidden(u"AM SMITH,12 ROAD"), u"AM XXXXXXXX XXXX");
  EXPECT_EQ(Hidden(u"ABSMITH"), u"ABXXXXX");
}

TEST(HiddenFreeText, IsRecognisedWhenItIsHidden) {
  const std::u16string hidden = Hidden(u"got \"AB34 ROAD\"AM TEXT\"\n");
  EXPECT_EQ(hidden, u"got \"ABXX XXXX\"AM TEXT\"\n");
  EXPECT_EQ(Hidden(hidden), hidden);
}

TEST(HiddenFreeText, TeachesNamesAllTheSame) {
  Redactor redactor;
  redactor.Learn(u"RMSMITH/JOHN MR CALLED");
  EXPECT_EQ(redactor.Hide(u"SMITH"), u"QBBBB");
}

// --- What is kept ----------------------------------------------------------------------------------------------------

TEST(Kept, StaysAsItIs) {
  const std::u16string text =
      Display(u"  1.SMITH/JOHN MR\n  2 FP CC4111111111111111\n  3 AP 0142\n  4 RM CALL SMITH\n");
  EXPECT_EQ(Redactor({Kind::Names, Kind::Cards, Kind::Contacts, Kind::Remarks}).Hide(text), text);
  EXPECT_EQ(Redactor({Kind::Names}).Hide(text),
            Display(u"  1.SMITH/JOHN MR\n  2 FP CC4000000000000002\n  3 AP 0000\n  4 RM XXXX XXXXX\n"));
  EXPECT_EQ(Redactor({Kind::Cards}).Hide(text),
            Display(u"  1.QBBBB/QBBB MR\n  2 FP CC4111111111111111\n  3 AP 0000\n  4 RM XXXX XXXXX\n"));
  EXPECT_EQ(Redactor({Kind::Contacts}).Hide(text),
            Display(u"  1.QBBBB/QBBB MR\n  2 FP CC4000000000000002\n  3 AP 0142\n  4 RM XXXX XXXXX\n"));
  EXPECT_EQ(Redactor({Kind::Remarks}).Hide(text),
            Display(u"  1.QBBBB/QBBB MR\n  2 FP CC4000000000000002\n  3 AP 0000\n  4 RM CALL QBBBB\n"));
}

TEST(Kept, RemarksStillHideCards) {
  EXPECT_EQ(Redactor({Kind::Remarks, Kind::Contacts}).Hide(u"RMCC 4111 1111 1111 1111"), u"RMCC 4000 0000 0000 0002");
}

TEST(KindsInAList, AreNamedByWords) {
  std::u16string wrong;
  EXPECT_EQ(KindsIn(u"names,cards", wrong), (std::set{Kind::Names, Kind::Cards}));
  EXPECT_EQ(KindsIn(u" Contacts , REMARKS ", wrong), (std::set{Kind::Contacts, Kind::Remarks}));
  EXPECT_EQ(KindsIn(u"", wrong), std::set<Kind>());
  EXPECT_EQ(wrong, u"");
  EXPECT_EQ(KindsIn(u"names,card", wrong), std::nullopt);
  EXPECT_EQ(wrong, u"card");
}

TEST(KindsInAList, AreNotEmpty) {
  std::u16string wrong = u"before";
  EXPECT_EQ(KindsIn(u"names,,cards", wrong), std::nullopt);
  EXPECT_EQ(wrong, u"");
}

// --- Questions -------------------------------------------------------------------------------------------------------

TEST(Hides, TellsWhetherAnEntryWouldChange) {
  Redactor redactor;
  EXPECT_FALSE(redactor.Hides(u"RTABC123"));
  EXPECT_TRUE(redactor.Hides(u"NM1SMITH/JOHN"));
  EXPECT_TRUE(redactor.Hides(u"RMPAY"));
  EXPECT_FALSE(redactor.Hides(u"RM"));
  EXPECT_FALSE(redactor.Hides(u"RMXXX"));
}

TEST(Tokens, AreTheNamesThatWereLearnt) {
  Redactor redactor;
  redactor.Learn(u"nm1Smith/John mr");
  EXPECT_EQ(redactor.Tokens(), (Tokens{u"SMITH", u"JOHN"}));
  redactor.Learn(u"NM1QBBBD/SMITH");  // has the form of a pseudonym, is none yet, and stays
  EXPECT_EQ(redactor.Tokens(), (Tokens{u"SMITH", u"JOHN"}));
}

TEST(Tokens, AreNoWordsThatTheHostSays) {
  Redactor redactor;
  redactor.Hide(u"  7  HHL QH HK1 MIA IN15JUN OUT18JUN\n");
  redactor.Learn(u"NM1LEE/MIA1CASH/TOM");
  EXPECT_EQ(redactor.Tokens(), (Tokens{u"LEE", u"CASH", u"TOM"}));
  redactor.Hide(u"  8 FP CASH\n");
  EXPECT_EQ(redactor.Tokens(), (Tokens{u"LEE", u"TOM"}));
}

TEST(Texts, OfAnyKindKeepTheirLength) {
  for (const TextView text :
       {u"", u"\n", u"RM", u"NM", u"RT/", u"(INF", u"SRDOCS", u"SR DOCS AF HK1-", u"\"RM", u"1.", u"8 SSR",
        u"8 SSR DOCS", u"RP/", u">", u"8 AP/P", u"\xD800SMITH\xDC00", u"NM1\xD83D\xDE00\xD83D"}) {
    EXPECT_EQ(Hidden(text).size(), TextView(text).size());
  }
}

}  // namespace
}  // namespace wendrill::redaction
