#include "trace/settings.h"

#include <gtest/gtest.h>

#include "common/text.h"
#include "support/raises.h"

namespace wendrill::trace {
namespace {

using redaction::Kind;
using wendrill::testing::ErrorOf;

std::string RefusalOf(std::u16string_view times, std::u16string_view kept) {
  const auto error = ErrorOf([&] { SettingsOf(u"run.jsonl", times, kept); });
  return error ? std::to_string(error->Number()) + " " + ToUtf8(error->Description()) : "accepted";
}

TEST(TraceSettings, HideEverythingAndHaveTimesUnlessToldOtherwise) {
  const Settings settings = SettingsOf(u"run.jsonl", u"", u"");
  EXPECT_EQ(settings.file, "run.jsonl");
  EXPECT_TRUE(settings.withTimes);
  EXPECT_TRUE(settings.kept.empty());
}

TEST(TraceSettings, TimesAreOnOrOff) {
  EXPECT_TRUE(SettingsOf(u"run.jsonl", u"on", u"").withTimes);
  EXPECT_FALSE(SettingsOf(u"run.jsonl", u"off", u"").withTimes);
  EXPECT_EQ(RefusalOf(u"OFF", u""), "5 QUILLET_TRACE_TIME must be on or off, not \"OFF\".");
  EXPECT_EQ(RefusalOf(u"0", u""), "5 QUILLET_TRACE_TIME must be on or off, not \"0\".");
}

TEST(TraceSettings, KindsThatAreKept) {
  EXPECT_EQ(SettingsOf(u"run.jsonl", u"", u"names").kept, std::set<Kind>{Kind::Names});
  EXPECT_EQ(SettingsOf(u"run.jsonl", u"", u"remarks,cards,contacts,names").kept,
            (std::set<Kind>{Kind::Names, Kind::Cards, Kind::Contacts, Kind::Remarks}));
  EXPECT_EQ(RefusalOf(u"", u"cards,phones"),
            "5 QUILLET_KEEP takes names, cards, contacts and remarks, joined with commas, not \"phones\".");
}

TEST(TraceSettings, MessagesNameTheOptionWhereItIsOne) {
  const auto error = ErrorOf([] { SettingsOf(u"run.jsonl", u"", u"phones", u"--trace-time", u"--keep"); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Description(),
            u"--keep takes names, cards, contacts and remarks, joined with commas, not \"phones\".");
}

}  // namespace
}  // namespace wendrill::trace
