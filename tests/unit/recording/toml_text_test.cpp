#include "recording/toml_text.h"

#include <gtest/gtest.h>

#include <limits>

#include "common/text.h"
#include "core/screen.h"
#include "core/toml_document.h"

namespace wendrill::recording {
namespace {

using simulator::TomlNode;

TomlNode ReadBack(std::string_view literal) {
  return simulator::ParseToml("key = " + std::string(literal) + "\n", simulator::TomlSource{u"test"}).front().node;
}

std::u16string TextReadBack(std::string_view literal) {
  return std::get<std::u16string>(ReadBack(literal).content);
}

TEST(TomlTexts, EscapeWhatAStringCannotHold) {
  EXPECT_EQ(Quoted(u"PLAIN 'TEXT'"), "\"PLAIN 'TEXT'\"");
  EXPECT_EQ(Quoted(u"A\"B\\C\r\n\t\x7F"), "\"A\\\"B\\\\C\\r\\n\\u0009\\u007F\"");
  EXPECT_EQ(Quoted(std::u16string(1, u'\0')), "\"\\u0000\"");
  EXPECT_EQ(Quoted(u"\x00E9\xD83D\xDE00"), "\"\xC3\xA9\xF0\x9F\x98\x80\"");
}

TEST(TomlTexts, AreReadBackAsTheyWere) {
  for (const std::u16string& text :
       {std::u16string(), std::u16string(u"'''"), std::u16string(u"\"\"\""), std::u16string(u"\\u0041"),
        std::u16string(u"\r\n\n\r"), std::u16string(1, u'\0') + u"\x1F\x7F\x80", std::u16string(u"\xFEFF\xFFFF"),
        std::u16string(u"# no comment")}) {
    EXPECT_EQ(TextReadBack(Quoted(text)), text);
  }
}

TEST(TomlTexts, OfHalfASurrogatePairHaveAReplacement) {
  EXPECT_EQ(TextReadBack(Quoted(u"A\xD83D")), u"A\xFFFD");
  EXPECT_EQ(TextReadBack(Quoted(u"\xDE00Z")), u"\xFFFDZ");
}

TEST(TomlTexts, OfRowsAreVerbatimWhereTheyCanBe) {
  EXPECT_EQ(Block({u"ONE", u"  TWO \\ \"THREE\""}), "'''\nONE\n  TWO \\ \"THREE\"\n'''");
  EXPECT_EQ(Block({u"IT'''S", u"BACK\\"}), "\"\"\"\nIT'''S\nBACK\\\\\n\"\"\"");
  EXPECT_EQ(Block({u"TAB\t", u"\"\"\""}), "\"\"\"\nTAB\\u0009\n\\\"\\\"\\\"\n\"\"\"");
  EXPECT_EQ(Block({}), "''");
  EXPECT_EQ(TextReadBack(Block({u"", u"'A'", u""})), u"\n'A'\n\n");
  EXPECT_EQ(TextReadBack(Block({u"", u"'''", u"\\", u""})), u"\n'''\n\\\n\n");
}

TEST(TomlLiterals, KeepTheTypesOfValues) {
  EXPECT_EQ(Literal(u"TEXT"), "\"TEXT\"");
  EXPECT_EQ(Literal(true), "true");
  EXPECT_EQ(Literal(false), "false");
  EXPECT_EQ(Literal(std::int16_t{-5}), "-5");
  EXPECT_EQ(Literal(std::numeric_limits<std::int32_t>::min()), "-2147483648");
  EXPECT_EQ(Literal(1.0), "1.0");
  EXPECT_EQ(Literal(0.1), "0.1");
  EXPECT_EQ(Literal(-1e300), "-1e+300");
  EXPECT_EQ(Literal(Value()), std::nullopt);
  EXPECT_EQ(Literal(Null()), std::nullopt);
  EXPECT_EQ(Literal(ObjectRef()), std::nullopt);
  for (const double number : {0.1, 1.0 / 3, 1e300, 5e-324, -0.5, 12345678.0, std::numeric_limits<double>::infinity()}) {
    EXPECT_EQ(std::get<double>(ReadBack(*Literal(number)).content), number);
  }
}

TEST(TomlLiterals, OfDatesAreDaysTimesOrBoth) {
  EXPECT_EQ(Literal(Date{39611}), "2008-06-12");
  EXPECT_EQ(Literal(Date{39611.75}), "2008-06-12T18:00:00");
  EXPECT_EQ(Literal(Date{0.75}), "18:00:00");
  EXPECT_EQ(Literal(Date{0}), "1899-12-30");
  EXPECT_EQ(Literal(Date{-1.25}), "1899-12-29T06:00:00");  // the time is added to a day before the first
  EXPECT_EQ(Literal(Date{std::numeric_limits<double>::quiet_NaN()}), std::nullopt);
  EXPECT_EQ(Literal(Date{3e6}), std::nullopt);
  for (const double days : {39611.0, 39611.75, 39611.123456789, 0.999999999, -1.25, -39611.5, 2958465.999, 1e-9}) {
    EXPECT_NEAR(std::get<Date>(ReadBack(*Literal(Date{days})).content).days, days, 1e-9) << days;
  }
}

TEST(TomlLiterals, OfErrorsAreStatusesOrNumbers) {
  EXPECT_EQ(ErrorLiteral(438), "438");
  EXPECT_EQ(ErrorLiteral(65535), "65535");
  EXPECT_EQ(ErrorLiteral(-2147467259), "0x80004005");
  EXPECT_EQ(ErrorLiteral(0), std::nullopt);
  EXPECT_EQ(ErrorLiteral(65536), std::nullopt);
}

TEST(TomlScreens, AreReadBackAsTheyWere) {
  const std::u16string row = std::u16string(u"ROW") + std::u16string(77, u' ');
  const std::u16string blank(80, u' ');
  for (const std::u16string& buffer : {std::u16string(), row, blank, row + blank, blank + row + blank + blank}) {
    ASSERT_TRUE(IsOfWholeRows(buffer, 80));
    EXPECT_EQ(simulator::PaddedScreen(TextReadBack(TextOfScreen(buffer, 80, false)), 80).buffer, buffer);
  }
  EXPECT_FALSE(IsOfWholeRows(u"SHORT", 80));
  EXPECT_FALSE(IsOfWholeRows(std::u16string(79, u' ') + u"\n", 80));
  EXPECT_EQ(TextOfScreen(u"SHORT ", 80, true), "\"SHORT \"");
  EXPECT_EQ(TextOfScreen(row, 80, false), "\"ROW\"");
}

TEST(TomlScreens, OfDisplaysAreRowsOrLines) {
  const DisplayText lines = TextOfDisplay(u"ONE\r\nTWO\r\n");
  EXPECT_TRUE(lines.breaks);
  EXPECT_EQ(lines.text, "'''\nONE\nTWO\n'''");
  const DisplayText rows = TextOfDisplay(std::u16string(u"ONE") + std::u16string(77, u' ') + u"TWO");
  EXPECT_FALSE(rows.breaks);
  EXPECT_EQ(rows.text, "'''\nONE\nTWO\n'''");
}

}  // namespace
}  // namespace wendrill::recording
