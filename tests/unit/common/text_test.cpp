#include "common/text.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "support/raises.h"

namespace wendrill::testing {
namespace {

constexpr std::int32_t kInvalidCall = 5;

// ---- Trimming and cutting

TEST(Trimmed, TakesBlanksOffBothEnds) {
  EXPECT_EQ(Trimmed(u"  RP/ 12  "), u"RP/ 12");
  EXPECT_EQ(TrimmedLeft(u"  RP/ 12  "), u"RP/ 12  ");
  EXPECT_EQ(TrimmedRight(u"  RP/ 12  "), u"  RP/ 12");
}

TEST(Trimmed, LeavesEveryOtherWhiteSpace) {
  EXPECT_EQ(Trimmed(u" \t A \r\n "), u"\t A \r\n");
  EXPECT_EQ(Trimmed(u"\u00A0A\u3000"), u"\u00A0A\u3000");
}

TEST(Trimmed, OfBlanksAloneIsEmpty) {
  EXPECT_EQ(Trimmed(u""), u"");
  EXPECT_EQ(Trimmed(u"   "), u"");
  EXPECT_EQ(TrimmedLeft(u"   "), u"");
  EXPECT_EQ(TrimmedRight(u"   "), u"");
}

TEST(Trimmed, IsAViewOfTheSameText) {
  const std::u16string text = u"  A  ";
  EXPECT_EQ(Trimmed(text).data(), text.data() + 2);
}

TEST(Columns, CountsFromOne) {
  EXPECT_EQ(Columns(u"ABCDEF", 1, 2), u"AB");
  EXPECT_EQ(Columns(u"ABCDEF", 3, 2), u"CD");
  EXPECT_EQ(Columns(u"ABCDEF", 6, 1), u"F");
  EXPECT_EQ(Columns(u"ABCDEF", 3, 0), u"");
}

TEST(Columns, EndsWhereTheTextEnds) {
  EXPECT_EQ(Columns(u"ABCDEF", 5, 10), u"EF");
  EXPECT_EQ(Columns(u"ABCDEF", 7, 1), u"");
  EXPECT_EQ(Columns(u"ABCDEF", 100, 1), u"");
  EXPECT_EQ(Columns(u"", 1, 1), u"");
  EXPECT_EQ(Columns(u"ABCDEF", 2, std::numeric_limits<std::ptrdiff_t>::max()), u"BCDEF");
}

TEST(Columns, RaisesInvalidCallForAColumnBelowOneAndANegativeCount) {
  EXPECT_TRUE(RaisesNumber(kInvalidCall, [] { Columns(u"ABC", 0, 1); }));
  EXPECT_TRUE(RaisesNumber(kInvalidCall, [] { Columns(u"ABC", -1, 1); }));
  EXPECT_TRUE(RaisesNumber(kInvalidCall, [] { Columns(u"ABC", 1, -1); }));
  EXPECT_TRUE(RaisesNumber(kInvalidCall, [] { Columns(u"ABC", 9, -1); }));
}

TEST(FromColumn, IsTheRestOfTheText) {
  EXPECT_EQ(FromColumn(u"ABCDEF", 1), u"ABCDEF");
  EXPECT_EQ(FromColumn(u"ABCDEF", 5), u"EF");
  EXPECT_EQ(FromColumn(u"ABCDEF", 7), u"");
  EXPECT_EQ(FromColumn(u"ABCDEF", 8), u"");
  EXPECT_TRUE(RaisesNumber(kInvalidCall, [] { FromColumn(u"ABC", 0); }));
}

TEST(FirstColumns, IsTheHeadOfTheText) {
  EXPECT_EQ(FirstColumns(u"ABCDEF", 2), u"AB");
  EXPECT_EQ(FirstColumns(u"ABCDEF", 0), u"");
  EXPECT_EQ(FirstColumns(u"ABCDEF", 7), u"ABCDEF");
  EXPECT_TRUE(RaisesNumber(kInvalidCall, [] { FirstColumns(u"ABC", -1); }));
}

TEST(LastColumns, IsTheTailOfTheText) {
  EXPECT_EQ(LastColumns(u"ABCDEF", 2), u"EF");
  EXPECT_EQ(LastColumns(u"ABCDEF", 0), u"");
  EXPECT_EQ(LastColumns(u"ABCDEF", 7), u"ABCDEF");
  EXPECT_TRUE(RaisesNumber(kInvalidCall, [] { LastColumns(u"ABC", -1); }));
}

// ---- Searching

TEST(ColumnOf, IsTheColumnOfTheFirstOccurrence) {
  EXPECT_EQ(ColumnOf(u"SSR VGML", u"S"), 1);
  EXPECT_EQ(ColumnOf(u"SSR VGML", u"VGML"), 5);
  EXPECT_EQ(ColumnOf(u"AAB", u"AB"), 2);
}

TEST(ColumnOf, IsZeroWhenNothingIsFound) {
  EXPECT_EQ(ColumnOf(u"SSR VGML", u"OSI"), 0);
  EXPECT_EQ(ColumnOf(u"AB", u"ABC"), 0);
  EXPECT_EQ(ColumnOf(u"", u"A"), 0);
}

TEST(ColumnOf, IsCaseSensitive) {
  EXPECT_EQ(ColumnOf(u"ssr", u"SSR"), 0);
}

TEST(ColumnOf, SearchesAtOrAfterTheGivenColumn) {
  EXPECT_EQ(ColumnOf(u"/P1/P2", u"/P", 1), 1);
  EXPECT_EQ(ColumnOf(u"/P1/P2", u"/P", 2), 4);
  EXPECT_EQ(ColumnOf(u"/P1/P2", u"/P", 4), 4);
  EXPECT_EQ(ColumnOf(u"/P1/P2", u"/P", 5), 0);
  EXPECT_EQ(ColumnOf(u"/P1/P2", u"/P", 100), 0);
  EXPECT_TRUE(RaisesNumber(kInvalidCall, [] { ColumnOf(u"/P1", u"/P", 0); }));
}

TEST(ColumnOf, FindsNothingAtAllWhereTheSearchBegins) {
  EXPECT_EQ(ColumnOf(u"ABC", u""), 1);
  EXPECT_EQ(ColumnOf(u"ABC", u"", 3), 3);
  EXPECT_EQ(ColumnOf(u"ABC", u"", 4), 0);
  EXPECT_EQ(ColumnOf(u"", u""), 0);
}

TEST(ColumnOf, ComparesWholeCharacters) {
  // Two characters that share one byte with those sought.
  EXPECT_EQ(ColumnOf(u"\u4120\u2041", u"A"), 0);
  EXPECT_EQ(ColumnOf(u"\u4120\u2041", u"\u2041"), 2);
}

TEST(Contains, TellsWhetherTheTextIsThere) {
  EXPECT_TRUE(Contains(u"*T* 12", u"*T*"));
  EXPECT_FALSE(Contains(u"*T* 12", u"*C*"));
  EXPECT_TRUE(Contains(u"A", u""));
  EXPECT_TRUE(Contains(u"", u""));
}

TEST(StartsWith, LooksAtTheHeadAlone) {
  EXPECT_TRUE(StartsWith(u"RP/PAR", u"RP/"));
  EXPECT_TRUE(StartsWith(u"RP/PAR", u""));
  EXPECT_FALSE(StartsWith(u" RP/PAR", u"RP/"));
  EXPECT_FALSE(StartsWith(u"RP", u"RP/"));
}

TEST(Before, IsWhatIsBeforeTheFirstMark) {
  EXPECT_EQ(Before(u"SMITH/JOHN/X", u"/"), u"SMITH");
  EXPECT_EQ(Before(u"/JOHN", u"/"), u"");
  EXPECT_EQ(Before(u"SMITH", u"/"), u"SMITH");
  EXPECT_EQ(Before(u"SMITH", u""), u"SMITH");
}

TEST(Replaced, ReplacesEveryOccurrence) {
  EXPECT_EQ(Replaced(u"A/B/C", u"/", u"; "), u"A; B; C");
  EXPECT_EQ(Replaced(u"//", u"/", u""), u"");
  EXPECT_EQ(Replaced(u"aaa", u"aa", u"b"), u"ba");
}

TEST(Replaced, DoesNotReplaceInWhatItPutIn) {
  EXPECT_EQ(Replaced(u"A", u"A", u"AA"), u"AA");
}

TEST(Replaced, LeavesTheTextWhereNothingIsSought) {
  EXPECT_EQ(Replaced(u"ABC", u"", u"x"), u"ABC");
  EXPECT_EQ(Replaced(u"ABC", u"D", u"x"), u"ABC");
  EXPECT_EQ(Replaced(u"", u"D", u"x"), u"");
}

// ---- Fields

TEST(FieldOf, CountsFieldsFromOne) {
  EXPECT_EQ(FieldOf(u"1/P1/S2", 1, u"/"), u"1");
  EXPECT_EQ(FieldOf(u"1/P1/S2", 2, u"/"), u"P1");
  EXPECT_EQ(FieldOf(u"1/P1/S2", 3, u"/"), u"S2");
}

TEST(FieldOf, CountsEmptyFields) {
  EXPECT_EQ(FieldOf(u"//S2", 1, u"/"), u"");
  EXPECT_EQ(FieldOf(u"//S2", 2, u"/"), u"");
  EXPECT_EQ(FieldOf(u"//S2", 3, u"/"), u"S2");
  EXPECT_EQ(FieldOf(u"A/", 2, u"/"), u"");
}

TEST(FieldOf, IsEmptyOutOfRange) {
  EXPECT_EQ(FieldOf(u"A/B", 3, u"/"), u"");
  EXPECT_EQ(FieldOf(u"A/B", 0, u"/"), u"");
  EXPECT_EQ(FieldOf(u"A/B", -1, u"/"), u"");
  EXPECT_EQ(FieldOf(u"", 1, u"/"), u"");
}

TEST(FieldOf, TakesDelimitersOfAnyLength) {
  EXPECT_EQ(FieldOf(u"A, B, C", 2, u", "), u"B");
  EXPECT_EQ(FieldOf(u"ABC", 1, u""), u"ABC");
  EXPECT_EQ(FieldOf(u"ABC", 2, u""), u"");
}

// ---- Lines

std::u16string Row(char16_t character) {
  std::u16string row(kRowWidth, character);
  return row;
}

TEST(LineOf, CutsATextWithoutLineBreaksIntoRowsOfEighty) {
  const std::u16string display = Row(u'A') + Row(u'B') + u"C";
  EXPECT_EQ(LineOf(display, 1), Row(u'A'));
  EXPECT_EQ(LineOf(display, 2), Row(u'B'));
  EXPECT_EQ(LineOf(display, 3), u"C");
  EXPECT_EQ(LineOf(display, 4), u"");
}

TEST(LineOf, CutsATextThatHoldsALineBreakAtItsBreaksAlone) {
  const std::u16string display = Row(u'A') + u"AA\r\nB";
  EXPECT_EQ(LineOf(display, 1), Row(u'A') + u"AA");
  EXPECT_EQ(LineOf(display, 2), u"B");
}

TEST(LineOf, CutsAtEveryKindOfLineBreak) {
  const TextView display = u"A\rB\nC\r\nD\n\rE";
  EXPECT_EQ(LineOf(display, 1), u"A");
  EXPECT_EQ(LineOf(display, 2), u"B");
  EXPECT_EQ(LineOf(display, 3), u"C");
  EXPECT_EQ(LineOf(display, 4), u"D");
  EXPECT_EQ(LineOf(display, 5), u"");  // LF CR are two breaks
  EXPECT_EQ(LineOf(display, 6), u"E");
}

TEST(LineOf, KeepsBlanks) {
  EXPECT_EQ(LineOf(u"  A  \r\n  B  ", 1), u"  A  ");
  EXPECT_EQ(LineOf(u"  A  \r\n  B  ", 2), u"  B  ");
  EXPECT_EQ(LineOf(Row(u' ') + u"B", 1), Row(u' '));
}

TEST(LineOf, IsEmptyPastTheEnd) {
  EXPECT_EQ(LineOf(u"A", 2), u"");
  EXPECT_EQ(LineOf(u"A\r\nB\r\n", 3), u"");
  EXPECT_EQ(LineOf(Row(u'A'), 2), u"");
  EXPECT_EQ(LineOf(u"", 1), u"");
  EXPECT_EQ(LineOf(u"A", std::numeric_limits<std::int32_t>::max()), u"");
}

TEST(LineOf, IsEmptyBelowLineOne) {
  EXPECT_EQ(LineOf(u"A\r\nB", 0), u"");
  EXPECT_EQ(LineOf(u"A\r\nB", -1), u"");
}

TEST(HasLineBreak, KnowsBothHalvesAndNothingElse) {
  EXPECT_TRUE(HasLineBreak(u"A\rB"));
  EXPECT_TRUE(HasLineBreak(u"A\n"));
  EXPECT_FALSE(HasLineBreak(u""));
  EXPECT_FALSE(HasLineBreak(u"A\tB\vC\f"));
  const std::u16string blanks(100, kBlank);
  EXPECT_FALSE(HasLineBreak(blanks));
  EXPECT_TRUE(HasLineBreak(blanks + u"\n"));
}

TEST(DisplayLines, PeeksWithoutMovingOn) {
  DisplayLines lines(u"A\r\nB");
  EXPECT_EQ(lines.Peek(), u"A");
  EXPECT_EQ(lines.Peek(), u"A");
  EXPECT_EQ(lines.Next(), u"A");
  EXPECT_EQ(lines.Peek(), u"B");
  EXPECT_EQ(lines.Next(), u"B");
  EXPECT_EQ(lines.Peek(), u"");
}

TEST(DisplayLines, TellsWhatIsLeft) {
  DisplayLines lines(u"A\r\n  B");
  EXPECT_EQ(lines.Rest(), u"A\r\n  B");
  lines.Next();
  EXPECT_EQ(lines.Rest(), u"  B");
  lines.Next();
  EXPECT_EQ(lines.Rest(), u"");
}

TEST(MarkInLines, StandsInALineOnlyWhole) {
  const TextView rows = u"--AB--AB--";  // of four, three and three columns
  MarkInLines mark(rows, u"AB");
  EXPECT_TRUE(mark.IsIn(rows.substr(0, 4)));
  EXPECT_TRUE(mark.IsIn(rows.substr(0, 4))) << "asked again";
  EXPECT_FALSE(mark.IsIn(rows.substr(4, 3))) << "its end stands in the next row";
  EXPECT_FALSE(mark.IsIn(rows.substr(7, 3)));
}

TEST(DisplayLines, ReachesTheEndAfterTheLastLine) {
  DisplayLines lines(u"A\r\n\r\n");
  EXPECT_FALSE(lines.AtEnd());
  EXPECT_EQ(lines.Next(), u"A");
  EXPECT_FALSE(lines.AtEnd());
  EXPECT_EQ(lines.Next(), u"");
  EXPECT_TRUE(lines.AtEnd());
  EXPECT_EQ(lines.Next(), u"");
  EXPECT_EQ(lines.Next(), u"");
}

TEST(DisplayLines, OfAnEmptyTextIsAtItsEnd) {
  EXPECT_TRUE(DisplayLines(u"").AtEnd());
}

// ---- Characters

TEST(IsDigit, HoldsForTheTenAsciiDigitsAlone) {
  EXPECT_TRUE(IsDigit(u'0'));
  EXPECT_TRUE(IsDigit(u'9'));
  for (const char16_t character : {u'/', u':', u'A', u' ', u'\u0661', u'\uFF11'}) {
    EXPECT_FALSE(IsDigit(character));
  }
}

TEST(IsCapital, HoldsForAToZAlone) {
  EXPECT_TRUE(IsCapital(u'A'));
  EXPECT_TRUE(IsCapital(u'Z'));
  for (const char16_t character : {u'@', u'[', u'a', u'z', u'1', u'\u00C4'}) {
    EXPECT_FALSE(IsCapital(character));
  }
}

TEST(UpperCase, MapsAsciiLettersAlone) {
  EXPECT_EQ(UpperCase(u"rtABC12 az{`\u00E4"), u"RTABC12 AZ{`\u00E4");
}

TEST(CompareWithoutCase, TakesCapitalsAndSmallLettersAsOne) {
  EXPECT_EQ(CompareWithoutCase(u"Command", u"cOMMAND"), 0);
  EXPECT_EQ(CompareWithoutCase(u"", u""), 0);
}

TEST(CompareWithoutCase, OrdersLikeAList) {
  EXPECT_LT(CompareWithoutCase(u"a", u"B"), 0);
  EXPECT_GT(CompareWithoutCase(u"b", u"A"), 0);
  EXPECT_LT(CompareWithoutCase(u"AB", u"abc"), 0);
  EXPECT_GT(CompareWithoutCase(u"abc", u"AB"), 0);
  EXPECT_LT(CompareWithoutCase(u"", u"a"), 0);
}

// ---- UTF-8

TEST(Utf8, CarriesEveryCodePointThereAndBack) {
  for (char32_t point = 0; point <= 0x10FFFF; ++point) {
    if (point >= 0xD800 && point <= 0xDFFF) {
      continue;
    }
    std::u16string text(1, static_cast<char16_t>(point));
    if (point >= 0x10000) {
      text = {static_cast<char16_t>(0xD7C0 + (point >> 10)), static_cast<char16_t>(0xDC00 + point % 0x400)};
    }
    ASSERT_EQ(FromUtf8(ToUtf8(text)), text) << "U+" << std::hex << static_cast<std::uint32_t>(point);
  }
}

TEST(Utf8, WritesTheStandardBytes) {
  EXPECT_EQ(ToUtf8(u"A\u00E9\u20AC\U0001F6EB"), "A\xC3\xA9\xE2\x82\xAC\xF0\x9F\x9B\xAB");
  EXPECT_EQ(FromUtf8("A\xC3\xA9\xE2\x82\xAC\xF0\x9F\x9B\xAB"), u"A\u00E9\u20AC\U0001F6EB");
}

TEST(Utf8, ReplacesUnpairedSurrogates) {
  const std::u16string high = {u'A', 0xD83D, u'B'};
  const std::u16string low = {0xDE00, u'A'};
  const std::u16string last = {u'A', 0xD83D};
  EXPECT_EQ(ToUtf8(high),
            "A\xEF\xBF\xBD"
            "B");
  EXPECT_EQ(ToUtf8(low),
            "\xEF\xBF\xBD"
            "A");
  EXPECT_EQ(ToUtf8(last), "A\xEF\xBF\xBD");
}

TEST(Utf8, ReplacesEveryByteThatIsNoUtf8) {
  EXPECT_EQ(FromUtf8("A\x80"
                     "B"),
            u"A\uFFFDB");                  // a continuation that continues nothing
  EXPECT_EQ(FromUtf8("\xC3"), u"\uFFFD");  // cut off
  EXPECT_EQ(FromUtf8("\xE2\x82"
                     "A"),
            u"\uFFFD\uFFFDA");                                           // cut off before a letter
  EXPECT_EQ(FromUtf8("\xC0\xAF"), u"\uFFFD\uFFFD");                      // longer than needed
  EXPECT_EQ(FromUtf8("\xE0\x80\xAF"), u"\uFFFD\uFFFD\uFFFD");            // longer than needed
  EXPECT_EQ(FromUtf8("\xED\xA0\x80"), u"\uFFFD\uFFFD\uFFFD");            // a surrogate
  EXPECT_EQ(FromUtf8("\xF4\x90\x80\x80"), u"\uFFFD\uFFFD\uFFFD\uFFFD");  // above the last code point
  EXPECT_EQ(FromUtf8("\xFF"), u"\uFFFD");
}

TEST(DecimalText, WritesWholeNumbers) {
  EXPECT_EQ(DecimalText(0), u"0");
  EXPECT_EQ(DecimalText(-32768), u"-32768");
  EXPECT_EQ(DecimalText(std::numeric_limits<std::int64_t>::max()), u"9223372036854775807");
  EXPECT_EQ(DecimalText(std::numeric_limits<std::int64_t>::min()), u"-9223372036854775808");
}

}  // namespace
}  // namespace wendrill::testing
