// Which of a trace's texts are read as entries. What is hidden in an entry: tests/unit/redaction.
#include "trace/trace_hiding.h"

#include <gtest/gtest.h>

#include "common/text.h"

namespace wendrill::trace {
namespace {

class HidingInTraces : public ::testing::Test {
 protected:
  std::string Message(std::u16string_view text) { return ToUtf8(hiding.Message(text)); }

  TraceHiding hiding{{}};
};

TEST_F(HidingInTraces, ScreensKeepTheirRows) {
  const std::vector<std::u16string> rows = {u"ONE", u"", u"  TWO  ", std::u16string(132, u'-')};
  EXPECT_EQ(hiding.Screen(rows), rows);
  EXPECT_TRUE(hiding.Screen({}).empty());
}

TEST_F(HidingInTraces, RemarkOnAScreenThatGoesOnInTheNextRow) {
  const std::vector<std::u16string> rows = {u"  5 RM NEEDS A", u"       WHEELCHAIR", u"  6 TK OK12JUN/PARXX0100"};
  const std::vector<std::u16string> hidden = {u"  5 RM XXXXX X", u"       XXXXXXXXXX", u"  6 TK OK12JUN/PARXX0100"};
  EXPECT_EQ(hiding.Screen(rows), hidden);
}

TEST_F(HidingInTraces, EntriesAreHiddenAsEntries) {
  EXPECT_EQ(ToUtf8(hiding.Entry(u"RMWHEELCHAIR")), "RMXXXXXXXXXX");
}

TEST_F(HidingInTraces, MessagesThatBeginAsEntriesDoAreNone) {
  EXPECT_EQ(Message(u"AMOUNT IS MISSING"), "AMOUNT IS MISSING");
  EXPECT_EQ(Message(u"RCH001"), "RCH001");  // a locator
  EXPECT_EQ(Message(u"AB"), "AB");          // a session
}

TEST_F(HidingInTraces, EntriesThatAMessageQuotesAreEntries) {
  EXPECT_EQ(Message(u"The scenario lets the entry \"RMWHEELCHAIR\" fail."),
            "The scenario lets the entry \"RMXXXXXXXXXX\" fail.");
  EXPECT_EQ(Message(u"got \"RMFOUR\", expected \"5 RM FIVE\""), "got \"RMXXXX\", expected \"5 RM XXXX\"");
  EXPECT_EQ(Message(u"in Send(\"RMWHEELCHAIR"), "in Send(\"RMXXXXXXXXXX");  // without an end
  EXPECT_EQ(Message(u"\""), "\"");
  EXPECT_EQ(Message(u""), "");
}

TEST_F(HidingInTraces, NamesOfExpectationsAboutEntries) {
  EXPECT_EQ(Message(u"Sent RMWHEELCHAIR"), "Sent RMXXXXXXXXXX");
  EXPECT_EQ(Message(u"NotSent RMWHEELCHAIR"), "NotSent RMXXXXXXXXXX");
  EXPECT_EQ(Message(u"InOrder RMFOUR, JI, RMTHREE"), "InOrder RMXXXX, JI, RMXXXXX");
  EXPECT_EQ(Message(u"Screen RMWHEELCHAIR"), "Screen RMXXXXXXXXXX");
}

TEST_F(HidingInTraces, LearntNamesAreHiddenInMessages) {
  hiding.Learn(u"1.ZWICKERSTEIN/PIROSKA MR");
  const std::string message = Message(u"no ticket for Mr Zwickerstein");
  EXPECT_EQ(message.substr(0, 17), "no ticket for Mr ");
  EXPECT_EQ(message.find("wickerstein"), std::string::npos);
  EXPECT_EQ(message.size(), std::string("no ticket for Mr Zwickerstein").size());
}

}  // namespace
}  // namespace wendrill::trace
