#include "transcript/markup.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace wendrill::transcript {
namespace {

std::string TextOf(std::string_view text) {
  std::string html;
  AppendText(html, text);
  return html;
}

std::string DataOf(std::string_view json) {
  std::string html;
  AppendData(html, json);
  return html;
}

TEST(MarkupText, HasNoCharacterOfMarkup) {
  EXPECT_EQ(TextOf("</script><img src=\"x\" onerror='y'>&amp;]]>"),
            "&lt;/script&gt;&lt;img src=&quot;x&quot; onerror='y'&gt;&amp;amp;]]&gt;");
}

TEST(MarkupText, ShowsControlCharactersAsTheirPictures) {
  EXPECT_EQ(TextOf(std::string_view("a\0b\r\n\t\x1B\x7F", 8)), "a␀b␍␊␉␛␡");
}

TEST(MarkupText, KeepsOtherTextUnchanged) {
  EXPECT_EQ(TextOf("ZÜRICH 東京 😀"), "ZÜRICH 東京 😀");
  EXPECT_EQ(TextOf(""), "");
}

TEST(MarkupText, IsAppended) {
  std::string html = "<b>";
  AppendText(html, "a<b");
  EXPECT_EQ(html, "<b>a&lt;b");
}

TEST(MarkupData, CannotEndItsElement) {
  EXPECT_EQ(DataOf(R"({"a":"</script><!--"})"), R"({"a":"\u003c/script>\u003c!--"})");
}

TEST(MarkupData, HasNoSeparatorOfLinesAsSuch) {
  EXPECT_EQ(DataOf("\"a\u2028b\u2029c\""), R"("a\u2028b\u2029c")");
}

TEST(MarkupData, KeepsCharactersThatBeginLikeASeparator) {
  EXPECT_EQ(DataOf("\"€ – ✕\""), "\"€ – ✕\"");
  EXPECT_EQ(DataOf("\xE2"), "\xE2");
}

TEST(LoneSurrogates, BecomeReplacementCharacters) {
  EXPECT_EQ(WithoutLoneSurrogates(R"("a\ud800b")"), R"("a\ufffdb")");
  EXPECT_EQ(WithoutLoneSurrogates(R"("\uDC00\uD800")"), R"("\ufffd\ufffd")");
  EXPECT_EQ(WithoutLoneSurrogates(R"("\ud800\ud83d\ude00")"), R"("\ufffd\ud83d\ude00")");
  EXPECT_EQ(WithoutLoneSurrogates(R"("\ud800\u0041")"), R"("\ufffd\u0041")");
}

TEST(LoneSurrogates, AreNotMistakenForAnEscapedBackslash) {
  EXPECT_EQ(WithoutLoneSurrogates(R"("\\ud800")"), R"("\\ud800")");
  EXPECT_EQ(WithoutLoneSurrogates(R"("\\\ud800")"), R"("\\\ufffd")");
}

TEST(LoneSurrogates, DoNotReadPastTheEnd) {
  EXPECT_EQ(WithoutLoneSurrogates(R"("\ud83d\ude0)"), R"("\ufffd\ude0)");
  EXPECT_EQ(WithoutLoneSurrogates(R"("\ud8)"), R"("\ud8)");
  EXPECT_EQ(WithoutLoneSurrogates(R"("\)"), R"("\)");
  EXPECT_EQ(WithoutLoneSurrogates(R"("\uzzzz")"), R"("\uzzzz")");
}

TEST(FilledPage, HasEachPartInItsPlaceAndReplacesNothingInParts) {
  const Part parts[] = {{"TITLE", "@BODY@"}, {"BODY", "text"}};
  EXPECT_EQ(Filled("<h1>@TITLE@</h1>@BODY@ @BODY@.", parts), "<h1>@BODY@</h1>text text.");
}

TEST(FilledPage, MustKnowEachPart) {
  EXPECT_THROW(Filled("@TITLE@", {}), std::logic_error);
  EXPECT_EQ(Filled("one @ alone", {}), "one @ alone");
}

}  // namespace
}  // namespace wendrill::transcript
