#include "redaction/passages.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "support/random_pnr_displays.h"

namespace wendrill::redaction {
namespace {

// "KIND: text" of each passage, with "+" before those that go on.
std::vector<std::string> Cut(TextView text) {
  static constexpr const char* kKinds[] = {"", "host", "names", "free", "contact", "document"};
  std::vector<std::string> found;
  for (const Passage& passage : PassagesOf(text)) {
    if (passage.kind != PassageKind::Other) {
      found.push_back((passage.continues ? "+" : "") + std::string(kKinds[static_cast<int>(passage.kind)]) + ": " +
                      ToUtf8(passage.In(text)));
    }
  }
  return found;
}

using Passages = std::vector<std::string>;

TEST(Passages, OfElementsAreFoundByTheirKeywords) {
  EXPECT_EQ(Cut(u"  8 RM PAY AT AIRPORT/S4/P1\n"), (Passages{"host: RM", "free:  PAY AT AIRPORT"}));
  EXPECT_EQ(Cut(u"  8 RMH HISTORY\n"), (Passages{"host: RMH", "free:  HISTORY"}));
  EXPECT_EQ(Cut(u"  8 RC PARXX0100-W/CREDIT\n"), (Passages{"host: RC", "free:  PARXX0100-W/CREDIT"}));
  EXPECT_EQ(Cut(u"  8 OSI AF VIP/P1\n"), (Passages{"host: OSI", "free:  VIP"}));
  EXPECT_EQ(Cut(u"  8 OSI VIP\n"), (Passages{"host: OSI", "free:  VIP"}));
  EXPECT_EQ(Cut(u"  8 AM SMITH,NICE\n"), (Passages{"host: AM", "free:  SMITH,NICE"}));
  EXPECT_EQ(Cut(u"  8 AB SMITH,NICE\n"), (Passages{"host: AB", "free:  SMITH,NICE"}));
  EXPECT_EQ(Cut(u"  8 AP NCE 04 93-B/P1-2\n"), (Passages{"host: AP", "contact:  NCE 04 93-B"}));
  EXPECT_EQ(Cut(u"  8 APE A@B.COM\n"), (Passages{"host: APE", "contact:  A@B.COM"}));
  EXPECT_EQ(Cut(u"  8 *SSR FQTV AF HK1/AF12/P1\n"), (Passages{"host: SSR", "host: FQTV", "contact: /AF12"}));
  EXPECT_EQ(Cut(u"  8 SSR DOCS U2 HK1/P/FRA\n"), (Passages{"host: SSR", "host: DOCS", "document: /P/FRA"}));
  EXPECT_EQ(Cut(u"  8 SSR VGML AF HK1/P1\n"), (Passages{"host: SSR", "host: VGML"}));
  EXPECT_EQ(Cut(u"  8 FP PAX CASH\n"), (Passages{"host: FP", "host: PAX", "host: CASH"}));
  EXPECT_EQ(Cut(u"  8  AFOPEN Y 22JUN 7 LHRNCE\n"), (Passages{"host: AFOPEN Y 22JUN 7 LHRNCE"}));
  EXPECT_EQ(Cut(u"  8  HHL QH HK1 MIA IN15JUN OUT18JUN\n"), (Passages{"host: HHL", "host: MIA"}));
  EXPECT_EQ(Cut(u"  8 MIS QT HK1 PAR 20JUN-TRAIN\n"), (Passages{"host: MIS", "host: PAR"}));
  EXPECT_EQ(Cut(u"  8 MIS QT HK1 ANN/LEE\n"), (Passages{"host: MIS"}));
}

TEST(Passages, GoOnInContinuations) {
  EXPECT_EQ(Cut(u"  8 RM PAY\n       AT AIRPORT\n       /S4/P1\n  9 OP A\n       B\n"),
            (Passages{"host: RM", "free:  PAY", "+free: AT AIRPORT", "host: OP"}));
  EXPECT_EQ(Cut(u"  8 AP 0142\n       3344\n\n       5566\n"),
            (Passages{"host: AP", "contact:  0142", "+contact: 3344"}));
  EXPECT_EQ(Cut(u"  1.SMITH/ANN(INF/SMITH\n       LEA)\n"), (Passages{"names: .SMITH/ANN(INF/SMITH", "+names: LEA)"}));
}

TEST(Passages, OfNames) {
  EXPECT_EQ(Cut(u"  1.SMITH/JOHN MR   2.LEE/ANN\n"), Passages{"names: .SMITH/JOHN MR   2.LEE/ANN"});
  EXPECT_EQ(Cut(u"1.SMITH/JOHN MR(ADT)"), Passages{"names: .SMITH/JOHN MR(ADT)"});
  EXPECT_EQ(Cut(u"  0.25SCHOOL TRIP NM: 2\n"), Passages());
  EXPECT_EQ(Cut(u"   1 SMITH/JOHN MR        ABC123\n"), Passages{"names: SMITH/JOHN MR"});
  EXPECT_EQ(Cut(u"1 O'BRIEN-LEE/ANN 15JUN\n"), Passages{"names: O'BRIEN-LEE/ANN "});
  EXPECT_EQ(Cut(u"NM1SMITH/JOHN MR"), Passages{"names: 1SMITH/JOHN MR"});
  EXPECT_EQ(Cut(u"nm1smith/john"), Passages{"names: 1smith/john"});
  EXPECT_EQ(Cut(u"RT/SMITH"), Passages{"names: /SMITH"});
  EXPECT_EQ(Cut(u"RT12JUN-SMITH"), Passages{"names: -SMITH"});
  EXPECT_EQ(Cut(u"RTAF123/12JUN-SMITH/J"), Passages{"names: -SMITH/J"});
  EXPECT_EQ(Cut(u"RTABC123"), Passages());
  EXPECT_EQ(Cut(u"RT - RETRIEVE A PNR"), Passages());
}

TEST(Passages, OfEntries) {
  EXPECT_EQ(Cut(u"RMPAY/S4/P1"), Passages{"free: PAY"});
  EXPECT_EQ(Cut(u"rmpay"), Passages{"free: pay"});
  EXPECT_EQ(Cut(u"RCPARXX-A;B"), Passages{"free: PARXX-A;B"});
  EXPECT_EQ(Cut(u"OS AF VIP"), Passages{"free:  VIP"});
  EXPECT_EQ(Cut(u"OSAF VIP;X"), Passages{"free:  VIP;X"});
  EXPECT_EQ(Cut(u"AMSMITH,NICE"), Passages{"free: SMITH,NICE"});
  EXPECT_EQ(Cut(u"AP PAR 0142/P1"), Passages{"contact:  PAR 0142"});
  EXPECT_EQ(Cut(u"APE-A1@B.COM"), Passages{"contact: E-A1@B.COM"});
  EXPECT_EQ(Cut(u"SRFQTV AF-AF12/P1"), (Passages{"host: FQTV", "contact: -AF12"}));
  EXPECT_EQ(Cut(u"SR DOCS AF HK1-P-FRA"), (Passages{"host: DOCS", "document: -P-FRA"}));
  EXPECT_EQ(Cut(u"SRVGML"), Passages());
  EXPECT_EQ(Cut(u"ET"), Passages());
}

TEST(Passages, OfPackedEntries) {
  EXPECT_EQ(Cut(u"RMPAY;ET;RM A/P1;NM1LEE/ANN"), (Passages{"free: PAY", "free:  A", "names: 1LEE/ANN"}));
  EXPECT_EQ(Cut(u"RMCALL; SHE IS ILL;ET"), (Passages{"free: CALL", "+free:  SHE IS ILL"}));
  EXPECT_EQ(Cut(u"ER; RMPAY"), Passages{"free: PAY"});
  EXPECT_EQ(Cut(u"ER; AB"), Passages());
}

// A row after the 80th column begins like one.
TEST(Passages, OfALongLine) {
  const std::u16string text(70, u'T');
  EXPECT_EQ(Cut(u"28 RM " + text + u" MORE TEXT"), (Passages{"host: RM", "free:  " + ToUtf8(text) + " MORE TEXT"}));
  EXPECT_EQ(Cut(u"RM" + text + u" MORE TXT"), Passages{"free: " + ToUtf8(text) + " MORE TXT"});
  EXPECT_EQ(Cut(u"28 RM " + text + u"      29 OP ABC"), (Passages{"host: RM", "free:  " + ToUtf8(text), "host: OP"}));
}

TEST(Passages, OfEchoesAndQuotationsNeedMoreThanTheFirstLetters) {
  EXPECT_EQ(Cut(u"RM PAY\n>RMPAY\n> AP 0142\nAM 12 RUE\nAMBIGUOUS\nABC123\nAPRIL 12\nOSLO 5\n"),
            (Passages{"free:  PAY", "free: PAY", "contact:  0142", "free:  12 RUE"}));
  EXPECT_EQ(Cut(u"  RMPAY  sent first in session A\nok"), Passages{"free: PAY  sent first in session A"});
  EXPECT_EQ(Cut(u"line 4, entry = \"RMPAY\"; got \"1.LEE/ANN\", \"8 AP 12\""),
            (Passages{"free: PAY", "names: .LEE/ANN", "host: AP", "contact:  12"}));
}

TEST(Passages, OfQuotationsComeAfterAnyMark) {
  EXPECT_EQ(Cut(u"a 5\" screen, \"RMPAY\" and \"AP 12"), (Passages{"free: PAY", "contact:  12"}));
}

TEST(Passages, OfTheHostBeginWithKnownKeywords) {
  EXPECT_EQ(Cut(u"   1 SMITH JOHN     ABC123\n"), Passages());
}

TEST(Passages, OfTheHost) {
  EXPECT_EQ(Cut(u"RP/PARXX0100/NCEYY2100            AM/SU  12JUN08/0930Z   ABC123\n"),
            (Passages{"host: RP/", "host: PARXX0100", "host: NCEYY2100", "host: 12JUN08", "host: ABC123"}));
  EXPECT_EQ(Cut(u"RP/PARXX0100\n"), (Passages{"host: RP/", "host: PARXX0100"}));
  EXPECT_EQ(Cut(u">" + std::u16string(49, u' ') + u"PAGE  1/ 3\n"), Passages{"host: PAGE"});
  EXPECT_EQ(Cut(u"MORE     \n"), Passages{"host: MORE"});
  EXPECT_EQ(Cut(u"END OF DISPLAY\n"), Passages{"host: END OF DISPLAY"});
}

TEST(Passages, AreAllOfTheText) {
  testing::RandomPnrDisplays displays(7);
  for (int i = 0; i < 2000; ++i) {
    const std::u16string display = displays.Next();
    std::size_t end = 0;
    for (const Passage& passage : PassagesOf(display)) {
      ASSERT_EQ(passage.begin, end) << ToUtf8(display);
      ASSERT_LT(passage.begin, passage.end) << ToUtf8(display);
      end = passage.end;
    }
    ASSERT_EQ(end, display.size()) << ToUtf8(display);
  }
}

}  // namespace
}  // namespace wendrill::redaction
