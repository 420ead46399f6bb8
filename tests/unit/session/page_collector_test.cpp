#include "session/page_collector.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <random>
#include <string>
#include <vector>

#include "common/text.h"
#include "support/reference_page_collector.h"
#include "support/screen.h"

namespace wendrill::testing {
namespace {

constexpr std::int16_t kPlain = 0;
constexpr std::int16_t kPnr = 22;
constexpr std::int16_t kContinued = 23;

struct Collected {
  std::u16string text;
  std::vector<std::u16string> pages;
  bool wantsMore = false;
};

// Collects until a page has no further one after it or all are taken.
Collected Collect(TextView entry, std::int16_t type, const std::vector<std::u16string>& pages) {
  PageCollector collector(entry, type);
  Collected collected;
  collected.wantsMore = true;
  for (auto page = pages.begin(); page != pages.end() && collected.wantsMore; ++page) {
    collected.wantsMore = collector.Take(*page);
    collected.pages.push_back(collector.Page());
  }
  collected.text = collector.TakeText();
  return collected;
}

std::string Shown(TextView text) {
  std::string shown;
  for (DisplayLines lines(text); !lines.AtEnd();) {
    shown += ToUtf8(TrimmedRight(lines.Next())) + "\n";
  }
  return shown;
}

void ExpectText(const std::u16string& expected, const Collected& collected) {
  EXPECT_FALSE(collected.wantsMore);
  EXPECT_EQ(expected, collected.text) << "expected:\n" << Shown(expected) << "collected:\n" << Shown(collected.text);
}

TEST(PageCollector, ReturnsAResponseOfOnePageWithoutAnyMarkerUnchanged) {
  const auto screen = Screen({u"AN15JUN", u"1 AF 123", u"2 LH 456"}) + u"> ";
  ExpectText(screen, Collect(u"AN15JUN", kPlain, {screen}));
}

TEST(PageCollector, DropsABlankFirstLine) {
  ExpectText(Screen({u"1 AF 123"}), Collect(u"AN", kPlain, {Screen({u"", u"1 AF 123"})}));
}

TEST(PageCollector, KeepsAFirstLineOfTabs) {
  const auto screen = Row(u"\t") + Row(u"1 AF 123");
  ExpectText(screen, Collect(u"AN", kPlain, {screen}));
}

TEST(PageCollector, DropsOnlyOneBlankLine) {
  ExpectText(Screen({u"", u"1 AF 123"}), Collect(u"AN", kPlain, {Screen({u"", u"", u"1 AF 123"})}));
}

TEST(PageCollector, LastHostEntryContainingPf24DropsTheFirstScreenLineOfEveryPage) {
  const auto collected = Collect(u"XPF24X", kPlain,
                                 {Screen({u"TITLE ONE", u"A", u"MORE     "}),
                                  Screen({u"TITLE TWO", u"B", u"MORE     "}), Screen({u"TITLE THREE", u"C"})});
  ExpectText(Screen({u"A", u"B", u"C"}), collected);
  EXPECT_EQ(collected.pages, (std::vector{Screen({u"A", u"MORE     "}), Screen({u"B", u"MORE     "}), Screen({u"C"})}));
}

TEST(PageCollector, LastHostEntryContaining4505DropsTheFirstScreenLine) {
  ExpectText(Screen({u"A"}), Collect(u"HE4505", kPlain, {Screen({u"TITLE", u"A"})}));
}

TEST(PageCollector, JoinsNumberedPagesAndDropsTheHeadThatEachRepeats) {
  ExpectText(Screen({u"** AVAILABILITY **", u"MO TU", u"1 AF 1", u"2 AF 2", u"3 AF 3", u")> 3/3"}),
             Collect(u"AN", kPlain,
                     {Screen({u"** AVAILABILITY **", u"MO TU", u"1 AF 1", u")> 1/3"}),
                      Screen({u"** AVAILABILITY **", u"MO TU", u"2 AF 2", u")> 2/3"}),
                      Screen({u"** AVAILABILITY **", u"MO TU", u"3 AF 3", u")> 3/3"})}));
}

TEST(PageCollector, FillsAPageThatItsMarkerCutsInARowWithBlanks) {
  ExpectText(Screen({u"A", u"B", u"C", u"D)>2/2"}),
             Collect(u"AN", kPlain, {Screen({u"A", u"B )>1/2"}), Screen({u"C", u"D)>2/2"})}));
}

TEST(PageCollector, ReadsNumbersAfterTheWideMarkerToo) {
  const std::u16string wide = u">" + std::u16string(49, u' ') + u"PAGE";
  ExpectText(Screen({u"A", u"B", wide + u"  2/ 2"}),
             Collect(u"AN", kPlain, {Screen({u"A", wide + u"  1/ 2"}), Screen({u"B", wide + u"  2/ 2"})}));
}

TEST(PageCollector, MarkerWithEqualNumbersEndsTheCollectionEvenIfMoreAlsoStandsInTheBuffer) {
  const auto screen = Screen({u"A", u")> 3/3", u"MORE     "});
  ExpectText(screen, Collect(u"AN", kPlain, {screen}));
  const auto shortScreen = std::u16string(u"MORE     )>3/3");
  ExpectText(shortScreen, Collect(u"AN", kPlain, {shortScreen}));
}

TEST(PageCollector, MarkerWithoutNumbersCountsAsTwoEqualOnes) {
  const auto screen = Screen({u"A", u")>", u"MORE     "});
  ExpectText(screen, Collect(u"AN", kPlain, {screen}));
}

TEST(PageCollector, MarkerWithoutASlashIsNone) {
  const auto screen = Screen({u"A", u")>PAGE 1", u"B"});
  ExpectText(screen, Collect(u"AN", kPlain, {screen}));
  ExpectText(Screen({u"A", u")>PAGE 1", u"B"}),
             Collect(u"AN", kPlain, {Screen({u"A", u")>PAGE 1", u"MORE     "}), Screen({u"B"})}));
}

TEST(PageCollector, LooksForASlashInTheTenCharactersAfterTheMarkerOnly) {
  const auto screen = Screen({u"A", u")>1         /2", u"B"});
  ExpectText(screen, Collect(u"AN", kPlain, {screen}));
}

TEST(PageCollector, JoinsContinuedPagesWithoutDroppingWhatTheyRepeat) {
  ExpectText(Screen({u"HEAD", u"A", u"HEAD", u"B"}),
             Collect(u"AN", kPlain, {Screen({u"HEAD", u"A", u"MORE     "}), Screen({u"HEAD", u"B"})}));
}

TEST(PageCollector, FindsTheContinuationMarkerInTheLastButOneRow) {
  ExpectText(Screen({u"HEAD", u"A", u"B"}),
             Collect(u"AN", kPlain, {Screen({u"HEAD", u"A", u"MORE     ", u""}), Screen({u"B"})}));
}

TEST(PageCollector, OverlooksAContinuationMarkerInAnEarlierRow) {
  const auto screen = Screen({u"MORE     ", u"A", u"B"});
  ExpectText(screen, Collect(u"AN", kPlain, {screen}));
}

TEST(PageCollector, OverlooksAContinuationMarkerThatDoesNotBeginItsRow) {
  const auto screen = Screen({u"A", u"B", u" MORE     "});
  ExpectText(screen, Collect(u"AN", kPlain, {screen}));
}

TEST(PageCollector, NeedsFiveBlanksAfterMore) {
  const auto screen = Screen({u"A", u"B", u"MORE    X"});
  ExpectText(screen, Collect(u"AN", kPlain, {screen}));
}

TEST(PageCollector, FindsTheContinuationMarkerAnywhereOnAPageOfTwoRows) {
  ExpectText(Screen({u"A", u"B"}), Collect(u"AN", kPlain, {Screen({u"A MORE     ", u""}), Screen({u"B"})}));
  ExpectText(Row(u"A ") + u"B", Collect(u"AN", kPlain, {u"A MORE     ", u"B"}));
}

// The mark at the beginning of a row of three, and so many characters after the last whole row. A page ends there in
// life with a prompt, for which no further page may be lost.
struct MarkedRow {
  int row;  // counted from 1
  std::size_t behind;
  bool counts;
};

std::ostream& operator<<(std::ostream& out, const MarkedRow& marked) {
  return out << "row " << marked.row << " with " << marked.behind << " characters after the last whole row";
}

class ContinuationMarker : public ::testing::TestWithParam<MarkedRow> {};

TEST_P(ContinuationMarker, CountsInTheLastRowsWhateverFollowsTheLastWholeRow) {
  const MarkedRow& marked = GetParam();
  std::u16string page;
  std::u16string before;
  for (int row = 1; row <= 4; ++row) {
    page += Row(row == marked.row ? u"MORE     " : u"A");
    before += row < marked.row ? Row(u"A") : std::u16string();
  }
  page.append(marked.behind, u'>');
  const auto collected = Collect(u"AN", kPlain, {page, Screen({u"B"})});
  ExpectText(marked.counts ? before + Row(u"B") : page, collected);
  EXPECT_EQ(collected.pages.size(), marked.counts ? 2U : 1U);
}

// Rows of four. With characters after it the fourth row is the last but one; with a single one the third is still found
// as the last but one, because the page's length is then read as if that character were not there.
INSTANTIATE_TEST_SUITE_P(Rows, ContinuationMarker,
                         ::testing::Values(MarkedRow{4, 0, true}, MarkedRow{3, 0, true}, MarkedRow{2, 0, false},   //
                                           MarkedRow{4, 1, true}, MarkedRow{3, 1, true}, MarkedRow{2, 1, false},   //
                                           MarkedRow{4, 2, true}, MarkedRow{3, 2, false}, MarkedRow{2, 2, false},  //
                                           MarkedRow{4, 79, true}, MarkedRow{3, 79, false}, MarkedRow{2, 79, false}),
                         [](const auto& test) {
                           return "Row" + std::to_string(test.param.row) + "With" + std::to_string(test.param.behind) +
                                  "Behind";
                         });

TEST(PageCollector, FindsTheContinuationMarkerInAnIncompleteLastRowAndInTheWholeRowBefore) {
  for (const std::size_t width : {9U, 10U, 78U, 79U}) {
    std::u16string last = u"MORE     ";
    last.resize(width, u'x');
    ExpectText(Screen({u"A", u"A", u"B"}), Collect(u"AN", kPlain, {Screen({u"A", u"A"}) + last, Screen({u"B"})}));
    ExpectText(Screen({u"A", u"B"}),
               Collect(u"AN", kPlain, {Screen({u"A", u"MORE     "}) + std::u16string(width, u'x'), Screen({u"B"})}));
  }
}

// 160 characters are a short page, 161 a long one.
TEST(PageCollector, LooksAtRowsFromOneHundredAndSixtyOneCharactersOn) {
  const auto shortPage = Screen({u"A  MORE     ", u"X"});
  EXPECT_TRUE(Collect(u"AN", kPlain, {shortPage}).wantsMore);
  EXPECT_FALSE(Collect(u"AN", kPlain, {shortPage + u" "}).wantsMore);
}

TEST(PageCollector, EndsAPageAtTheFirstOccurrenceOfTheContinuationMarker) {
  ExpectText(Screen({u"A", u"B"}),
             Collect(u"AN", kPlain, {Screen({u"A", u"MORE     ", u"LOST", u"MORE     "}), Screen({u"B"})}));
}

TEST(PageCollector, OfAContinuedResponseTypeDropsNothingThatNumberedPagesRepeat) {
  ExpectText(Screen({u"HEAD", u"A", u"HEAD", u"B", u")>2/2"}),
             Collect(u"AN", kContinued, {Screen({u"HEAD", u"A", u")>1/2"}), Screen({u"HEAD", u"B", u")>2/2"})}));
}

TEST(PageCollector, DropsAPageThatRepeatsTheOneBeforeUpToItsNumber) {
  ExpectText(
      Screen({u"A", u"B", u")>3/3"}),
      Collect(u"AN", kPlain, {Screen({u"A", u")>1/3"}), Screen({u"A", u")>2/3"}), Screen({u"A", u"B", u")>3/3"})}));
}

TEST(PageCollector, PnrDisplayWhoseFirstLineCarriesTheTitleIsReturnedWithoutThatLine) {
  ExpectText(Screen({u"RP/PARXX2100", u" 1.SMITH/JOHN"}),
             Collect(u"RT", kPnr, {Screen({u"--- TC-BIZ RLP ---", u"RP/PARXX2100", u" 1.SMITH/JOHN"})}));
  ExpectText(Screen({u"RP/PARXX2100"}), Collect(u"RT", kPnr, {Screen({u"--- TST TC-BIZ RLP ---", u"RP/PARXX2100"})}));
}

TEST(PageCollector, KeepsTheTitleOfAResponseOfAnotherType) {
  const auto screen = Screen({u"--- TC-BIZ RLP ---", u"RP/PARXX2100"});
  ExpectText(screen, Collect(u"RT", kPlain, {screen}));
}

TEST(PageCollector, KeepsAnotherTitleOfAPnrDisplay) {
  const auto screen = Screen({u"--- RLP ---", u"RP/PARXX2100"});
  ExpectText(screen, Collect(u"RT", kPnr, {screen}));
}

TEST(PageCollector, KeepsContinuedPnrPagesFromTheirHeaderOnAndTheLastPageWhole) {
  ExpectText(Screen({u"RP/PAR", u"1.SMITH", u"RP/PAR", u"2 AF 1", u"--- TST RLP ---", u"RP/PAR", u"3 AP"}),
             Collect(u"RT", kPnr,
                     {Screen({u"--- TST RLP ---", u"RP/PAR", u"1.SMITH", u"MORE     "}),
                      Screen({u"--- TST RLP ---", u"RP/PAR", u"2 AF 1", u"MORE     "}),
                      Screen({u"--- TST RLP ---", u"RP/PAR", u"3 AP"})}));
}

TEST(PageCollector, DropsTheFirstScreenLineOfAContinuedPnrPageWhoseHeaderIsThere) {
  ExpectText(Screen({u"1.SMITH", u"2 AF 1"}),
             Collect(u"RT", kPnr, {Screen({u"  RP/PAR", u"1.SMITH", u"MORE     "}), Screen({u"2 AF 1"})}));
}

TEST(PageCollector, KeepsTheHeaderLineOfNumberedPnrPagesOnce) {
  ExpectText(Screen({u"RP/PAR", u"1.SMITH", u"2 AF 1", u")>2/2"}),
             Collect(u"RT", kPnr,
                     {Screen({u"--- RLP ---", u"RP/PAR", u"1.SMITH", u")>1/2"}),
                      Screen({u"--- RLP ---", u"RP/PAR", u"2 AF 1", u")>2/2"})}));
}

TEST(PageCollector, PutsOneLineBreakBetweenPagesThatCarryLineBreaks) {
  ExpectText(u"A\r\nB\r\nC\r\nD)>2/2", Collect(u"AN", kPlain, {u"A\r\nB)>1/2", u"C\r\nD)>2/2"}));
  ExpectText(u"A\r\nB\r\nC\r\nD)>2/2", Collect(u"AN", kPlain, {u"A\r\nB\r\n)>1/2", u"C\r\nD)>2/2"}));
}

TEST(PageCollector, ReturnsThePagesWithTheirMarkers) {
  const auto collected = Collect(u"AN", kPlain, {Screen({u"A", u")>1/2"}), Screen({u"B", u")>2/2"})});
  EXPECT_EQ(collected.pages, (std::vector{Screen({u"A", u")>1/2"}), Screen({u"B", u")>2/2"})}));
}

// --- Against the reference ---

class RandomDisplays {
 public:
  explicit RandomDisplays(unsigned seed) : random_(seed) {}

  std::u16string Entry() { return Pick<std::u16string>({u"AN15JUN", u"RT", u"HE4505", u"PF24"}); }
  std::int16_t Type() { return Pick<std::int16_t>({kPlain, kPnr, kContinued}); }

  std::vector<std::u16string> Pages() {
    const int count = Upto(5) + 1;
    std::vector<std::u16string> pages;
    for (int number = 1; number <= count; ++number) {
      pages.push_back(Page(number, count));
    }
    return pages;
  }

 private:
  int Upto(int most) { return std::uniform_int_distribution<int>(0, most)(random_); }

  template <typename T>
  T Pick(const std::vector<T>& choices) {
    return choices[static_cast<std::size_t>(Upto(static_cast<int>(choices.size()) - 1))];
  }

  // Rows from a small stock, so that neighbouring pages share leading lines and hold blank ones.
  std::u16string StockRow() {
    return Pick<std::u16string>({u"", u"** AVAILABILITY **", u"RP/PARXX2100", u"--- TC-BIZ RLP ---", u"1 AF 1",
                                 u"  RP/ X", u"MORE     ", u"MORE", u") > 1/2", u"2 LH 2"});
  }

  std::u16string Mark(int number, int count) {
    const std::u16string numbers = DecimalText(number) + u"/" + DecimalText(Upto(9) == 0 ? number : count);
    switch (Upto(5)) {
      case 0:
        return u")>" + numbers;
      case 1:
        return u")>  " + numbers + u" ";
      case 2:
        return u">" + std::u16string(49, kBlank) + u"PAGE " + numbers;
      case 3:
        return u")>" + Pick<std::u16string>({u"", u"PAGE 1", u"1/2/3", u"          1/2"});
      default:
        return u"MORE     ";
    }
  }

  std::u16string Page(int number, int count) {
    std::u16string page;
    const bool broken = Upto(9) == 0;
    for (int rows = Upto(4); rows >= 0; --rows) {
      page += broken ? StockRow() + Pick<std::u16string>({u"\r\n", u"\r", u"\n"}) : Row(StockRow());
    }
    page.resize(page.size() - static_cast<std::size_t>(Upto(1) * Upto(static_cast<int>(page.size()))));  // a short end
    if (Upto(4) > 0) {
      Place(page, Mark(number, count));
    }
    if (Upto(2) == 0) {  // something after the last whole row
      page.append(Pick<std::size_t>({1, 2, static_cast<std::size_t>(Upto(78)), 79}), Pick<char16_t>({u' ', u'>'}));
    }
    return page;
  }

  // Anywhere, at the beginning of one of the last rows, or after everything.
  void Place(std::u16string& page, const std::u16string& mark) {
    const auto rows = page.size() / kRowWidth;
    switch (Upto(3)) {
      case 0:
        page.insert(static_cast<std::size_t>(Upto(static_cast<int>(page.size()))), mark);
        break;
      case 1:
        page.replace(rows > 0 ? (rows - 1) * kRowWidth : 0, mark.size(), mark);
        break;
      case 2:
        page.replace(rows > 1 ? (rows - 2) * kRowWidth : 0, mark.size(), mark);
        break;
      default:
        page += mark;
    }
  }

  std::mt19937 random_;
};

TEST(PageCollector, AgreesWithTheReferenceOnRandomDisplays) {
  int further = 0;
  for (unsigned seed = 1; seed <= 3000 && !::testing::Test::HasFailure(); ++seed) {
    RandomDisplays displays(seed);
    const auto entry = displays.Entry();
    const auto type = displays.Type();
    const auto pages = displays.Pages();
    const auto collected = Collect(entry, type, pages);
    const auto expected = CollectByReference(entry, type, pages);
    EXPECT_EQ(expected.text, collected.text) << "seed " << seed << "\n"
                                             << Shown(expected.text) << "-\n"
                                             << Shown(collected.text);
    EXPECT_EQ(expected.pages, collected.pages) << "seed " << seed;
    EXPECT_EQ(expected.wantsMore, collected.wantsMore) << "seed " << seed;
    further += collected.pages.size() > 1 ? 1 : 0;
  }
  EXPECT_GT(further, 1000) << "the displays hardly ever have further pages";
}

TEST(PageCollector, AgreesWithTheReferenceOnAMarkerAtEveryPosition) {
  for (const std::u16string mark : {u"MORE     ", u")>1/2", u")>2/2"}) {
    for (const std::size_t length : {80U, 160U, 161U, 162U, 240U, 319U}) {
      for (std::size_t at = 0; at <= length; ++at) {
        std::u16string page(length, u'x');
        page.replace(at, std::min(mark.size(), page.size() - at), mark);
        const std::vector pages = {page, Screen({u"LAST"})};
        EXPECT_EQ(CollectByReference(u"AN", kPlain, pages).text, Collect(u"AN", kPlain, pages).text)
            << ToUtf8(mark) << " at " << at << " of " << length << " characters";
      }
    }
  }
}

}  // namespace
}  // namespace wendrill::testing
