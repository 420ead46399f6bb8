#include "json_text.h"

#include <gtest/gtest.h>

namespace wendrill::tool {
namespace {

std::string Written(TextView text) {
  std::string json;
  JsonText(json).String(text);
  return json;
}

TEST(JsonText, EscapesWhatStringsMayNotHold) {
  EXPECT_EQ(Written(u""), R"("")");
  EXPECT_EQ(Written(u"PAY AT AIRPORT/S5"), R"("PAY AT AIRPORT/S5")");
  EXPECT_EQ(Written(u"A\"B\\C"), R"("A\"B\\C")");
  EXPECT_EQ(Written(u"A\nB\tC\u0000D"), "\"A\\u000aB\\u0009C\"");  // a literal ends at its zero
  EXPECT_EQ(Written(TextView(u"\0\x1F", 2)), R"("\u0000\u001f")");
}

TEST(JsonText, WritesUtf8AndReplacesWhatIsNone) {
  EXPECT_EQ(Written(u"CAF\u00C9 \U0001F600!"), "\"CAF\xC3\x89 \xF0\x9F\x98\x80!\"");
  constexpr char16_t kUnpaired[] = {u'A', 0xD800, u'B', 0};
  EXPECT_EQ(Written(kUnpaired),
            "\"A\xEF\xBF\xBD"
            "B\"");
}

TEST(JsonText, SeparatesValues) {
  std::string text;
  JsonText json(text);
  json.Begin('{');
  json.Key("a");
  json.Begin('[');
  json.Whole(1);
  json.Flag(true);
  json.Null();
  json.End(']');
  json.Field("b", u"x");
  json.Key("c");
  json.Begin('{');
  json.End('}');
  json.End('}');
  EXPECT_EQ(text, R"({"a":[1,true,null],"b":"x","c":{}})");
}

}  // namespace
}  // namespace wendrill::tool
