#include "core/journal.h"

#include <gtest/gtest.h>

namespace wendrill::simulator {
namespace {

TEST(Journal, EachCallIsALineOfItsForm) {
  Journal journal;
  journal.Key(322);
  journal.Send(u"AN15JUNPARLON", true);
  journal.Send(u"XX", false);
  journal.Type(u"HELLO");
  journal.Alarm(true);
  journal.Alarm(false);
  journal.ReadPnrOnDisplay();
  journal.Retrieve(u"RTABC123");
  EXPECT_EQ(journal.Text(),
            u"key 322\r\nsend AN15JUNPARLON\r\nsend XX (unanswered)\r\ntype HELLO\r\nalarm lock\r\nalarm unlock\r\n"
            u"read pnr on display\r\nretrieve RTABC123\r\n");
}

TEST(Journal, ALineBreakInsideAnEntryDoesNotEndTheLine) {
  Journal journal;
  journal.Send(u"RM A\r\nRM B", true);
  EXPECT_EQ(journal.Text(), u"send RM A\\r\\nRM B\r\n");
}

TEST(Journal, ClearedItIsEmpty) {
  Journal journal;
  journal.Key(322);
  journal.Clear();
  EXPECT_EQ(journal.Text(), u"");
}

}  // namespace
}  // namespace wendrill::simulator
