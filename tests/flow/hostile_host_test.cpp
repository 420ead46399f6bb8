// A host that means harm: answers without end, empty ones, huge ones.
#include <gtest/gtest.h>

#include <functional>
#include <set>

#include "pnr/pnr.h"
#include "pnr/records.h"
#include "scan/display_scans.h"
#include "simulated_desktop.h"

namespace wendrill::flow {
namespace {

// --- Without end ----------------------------------------------------------------------------------------------------

// Every entry is answered by a page that asks for more, MD included.
constexpr std::u16string_view kEndless =
    uR"toml(
session = [{ name = "A" }]

[[reply]]
entry = "TICS"
screen = "AND ON +"
raw = true

[[reply]]
entry = "TQT"
screen = "FARE (1)"

[[reply]]
entry = "MD"
screen = "MORE     +)"
raw = true

[[reply]]
starts = ""
screen = "MORE     "
raw = true
)toml";

struct Collection {
  const char* name;
  std::int32_t number;
  std::function<std::u16string(CQuillet&, const ParamBagRef&)> run;
  std::set<std::u16string_view> keys = {};
};

void PrintTo(const Collection& collection, std::ostream* out) {
  *out << collection.name;
}

const Collection kCollections[] = {
    {"SendCommandGetAll", 2525, [](CQuillet& q, const ParamBagRef&) { return q.SendCommandGetAll(u"AN"); }},
    {"SendCommandGetAllNoClear", 2525,
     [](CQuillet& q, const ParamBagRef&) { return q.SendCommandGetAllNoClear(u"QE"); }},
    {"SendCommandCollectPages", 2557,
     [](CQuillet& q, const ParamBagRef&) {
       TextArray pages;
       return q.SendCommandCollectPages(u"QE", pages);
     }},
    {"GetTotalHostResponse", 2545,
     [](CQuillet& q, const ParamBagRef&) {
       q.SendCommand(u"AN");
       return q.GetTotalHostResponse();
     }},
    {"SendCommandFIWithGetAll",
     2506,
     [](CQuillet& q, const ParamBagRef& bag) { return q.SendCommandFI(u"QE", bag); },
     {u"blnKeyGetAll"}},
    {"SendCommandFIWithTST",
     2506,
     [](CQuillet& q, const ParamBagRef& bag) { return q.SendCommandFI(u"TQT", bag); },
     {u"blnKeyGetAll", u"blnKeyTST"}},
};

class EndlessHost : public SimulatedDesktop {
 protected:
  void SetUp() override {
    LoadText(kEndless);
    quillet.emplace(module);
  }

  // Does something inside the n-th time that MD is sent; nothing can send after it but what it lets through.
  void AtNextPage(int nth, std::function<void()> act) {
    world.OnCall([this, nth, act = std::move(act)](std::u16string_view call) {
      if (call == u"Send" && EndsWithMd(world.Journal()) && ++pages == nth) {
        act();
      }
    });
  }

  static bool EndsWithMd(const std::u16string& journal) { return journal.ends_with(u"send MD\r\n"); }

  ParamBagRef BagWith(const std::set<std::u16string_view>& keys) {
    auto bag = world.MakeParamBag();
    for (const auto key : keys) {
      bag->Set(key, true);
    }
    return bag;
  }

  std::optional<CQuillet> quillet;
  int pages = 0;
};

class EndlessPages : public EndlessHost, public ::testing::WithParamInterface<Collection> {};

// The page under way still arrives; the MD after it finds no session.
TEST_P(EndlessPages, AreStoppedByAStopLoopThatComesInTheMiddle) {
  const ParamBagRef bag = BagWith(GetParam().keys);
  AtNextPage(50, [&] { quillet->StopLoop(); });
  EXPECT_TRUE(Raises(GetParam().number, testing::kCommunicationMessage, [&] { GetParam().run(*quillet, bag); }));
  EXPECT_EQ(pages, 50);
  NewJournal();
  quillet->ConnectSession(u"A");
  EXPECT_EQ(quillet->LockUnLockAlarm(false), 0);
  EXPECT_EQ(NewJournal(), "") << "the alarm lock was not given back";
}

TEST_P(EndlessPages, EndByThemselvesAfterTheLastPageThatCanBeCounted) {
  const ParamBagRef bag = BagWith(GetParam().keys);
  AtNextPage(0, [] {});
  EXPECT_TRUE(Raises(GetParam().number, testing::kCommunicationMessage, [&] { GetParam().run(*quillet, bag); }));
  EXPECT_EQ(pages, 32767);
}

INSTANTIATE_TEST_SUITE_P(Members, EndlessPages, ::testing::ValuesIn(kCollections),
                         [](const auto& collection) { return std::string(collection.param.name); });

// A display that no page ends, but that shows the same page again, has no further one.
TEST_F(EndlessHost, ADisplayReadByLinesEndsWhereItRepeats) {
  const std::u16string text = quillet->SendCommandLines(u"AN", u"", u"");
  EXPECT_EQ(NewJournal(), "send AN; send MD; send MD");
  EXPECT_EQ(text, Row(u"MORE") + u"MORE     +)");
}

class EndlessLoop : public EndlessHost {
 protected:
  void SetUp() override {
    EndlessHost::SetUp();
    bag = BagWith({u"blnKeyGetAll"});
    bag->Set(u"strKeyCommand", u"TICS");
    quillet->SendCommandGetAll(u"");  // begins a loop
  }

  ParamBagRef bag;
};

TEST_F(EndlessLoop, IsEndedByAStopLoopInAMessageAndGivesWhatItHas) {
  int passes = 0;
  world.Pump().OnRun([&] {
    if (++passes == 100) {
      quillet->StopLoop();
    }
  });
  const std::u16string text = quillet->SendCommandTicsPas(bag);
  EXPECT_EQ(text.substr(0, kRowWidth), Row(u"AND ON +"));
  EXPECT_EQ(text.size(), 99 * kRowWidth + 11);  // the first page and 99 by MD, the last one as it came
}

// The toolkit may let messages run inside each of its calls, not only where the library waits.
TEST_F(EndlessLoop, IsEndedByAStopLoopInsideAnyCallOfAPassAndGivesWhatItHas) {
  for (int nth = 20; nth < 24; ++nth) {  // LastResponse, Text, SendKey, Send, after a few passes
    quillet->SendCommandGetAll(u"");
    int calls = 0;
    world.OnCall([&](std::u16string_view) {
      if (++calls == nth) {
        quillet->StopLoop();
      }
    });
    const std::u16string text = quillet->SendCommandTicsPas(bag);
    world.OnCall({});
    EXPECT_EQ(text.substr(0, kRowWidth), Row(u"AND ON +"));
    EXPECT_GT(text.size(), 3 * kRowWidth);
    EXPECT_LT(text.size(), 7 * kRowWidth);
    quillet->ConnectSession(u"A");
  }
}

// --- Empty ----------------------------------------------------------------------------------------------------------

class EmptyHost : public SimulatedDesktop {
 protected:
  void SetUp() override {
    LoadText(
        uR"toml(
session = [{ name = "A" }]

[[reply]]
entry = "TWO"
pages = ["ONE\n)>1/2", ""]

[[reply]]
starts = ""
screen = ""
raw = true

[[pnr]]
RecordLocator = "EMPTY1"
display = ""
)toml");
    world.Time().SetStep(std::chrono::seconds(10));
    quillet.emplace(module);
  }

  std::optional<CQuillet> quillet;
};

TEST_F(EmptyHost, AnEmptyAnswerIsAnAnswerWhereNobodyWaits) {
  EXPECT_EQ(quillet->SendCommand(u"JD"), u"");
  EXPECT_EQ(quillet->SendCommandGetAll(u"JD"), u"");
  EXPECT_EQ(quillet->GetTotalHostResponse(), u"");
  EXPECT_EQ(quillet->SendCommandLines(u"JD", u"1", u"1"), u"");
  EXPECT_EQ(quillet->LastBuffer(), u"");
  TextArray pages;
  EXPECT_EQ(quillet->SendCommandCollectPages(u"JD", pages), u"");
  EXPECT_EQ(pages.items, std::vector<std::u16string>{u""});
}

TEST_F(EmptyHost, AnEmptyAnswerIsNoneWhereTheMemberWaits) {
  EXPECT_TRUE(Raises(2530, testing::kCommunicationMessage, [&] { quillet->SendCommandNoClear(u"JD"); }));
  EXPECT_EQ(NewJournal(), "send JD; send JD; send JD");
}

TEST_F(EmptyHost, AnEmptyFurtherPageEndsTheCollection) {
  EXPECT_EQ(quillet->SendCommandGetAll(u"TWO"), Row(u"ONE"));
}

TEST_F(EmptyHost, AnEmptyDisplayHasNoElements) {
  EXPECT_TRUE(quillet->RetrieveRecLoc(u"EMPTY1"));
  CPNR pnr(module);
  DisplayScans scans(module);
  EXPECT_EQ(pnr.Text(), u"");
  EXPECT_EQ(pnr.CreationDate(), u"");
  for (const DisplayKind* kind : kDisplayKinds) {
    EXPECT_EQ(scans.Count(*kind), 0);
  }
}

// --- Huge -----------------------------------------------------------------------------------------------------------

constexpr std::size_t kHuge = 1'000'000;  // characters

class HugeHost : public SimulatedDesktop {
 protected:
  void SetUp() override {
    const std::u16string rows = RowsOf(u"SOME TEXT", kHuge / kRowWidth);
    LoadText(u"session = [{ name = 'A' }]\n[[reply]]\nentry = 'HUGE'\nraw = true\nscreen = '" + rows +
             u"'\n[[reply]]\nentry = 'TWO'\nraw = true\npages = ['" + rows + u")>1/2', '" + rows + u")>2/2']\n");
    quillet.emplace(module);
  }

  // Retrieves a PNR of these lines.
  void RetrieveDisplay(const std::u16string& lines) {
    LoadText(u"session = [{ name = 'A' }]\n[[pnr]]\nRecordLocator = 'HUGE01'\ndisplay = '''\n" + lines + u"'''\n");
    quillet.reset();
    quillet.emplace(module);
    ASSERT_TRUE(quillet->RetrieveRecLoc(u"HUGE01"));
  }

  static std::u16string LinesOf(std::u16string_view text, std::size_t count) {
    std::u16string lines;
    for (std::size_t line = 0; line < count; ++line) {
      lines.append(text).append(u"\n");
    }
    return lines;
  }

  static std::u16string RowsOf(std::u16string_view text, std::size_t count) {
    std::u16string rows;
    for (std::size_t row = 0; row < count; ++row) {
      rows += Row(text);
    }
    return rows;
  }

  std::optional<CQuillet> quillet;
};

TEST_F(HugeHost, APageOfAMillionCharactersArrivesWhole) {
  EXPECT_EQ(quillet->SendCommand(u"HUGE").View().size(), kHuge);
  EXPECT_EQ(quillet->SendCommandNoClear(u"HUGE").size(), kHuge);
  EXPECT_EQ(quillet->SendCommandGetAll(u"HUGE").size(), kHuge);
  EXPECT_EQ(quillet->LastBuffer().size(), kHuge);
  EXPECT_EQ(quillet->GetTotalHostResponse().size(), kHuge);
  EXPECT_EQ(quillet->SendCommandLines(u"HUGE", u"12500", u"1"), Row(u"SOME TEXT"));
}

// The second page repeats all lines of the first but the last.
TEST_F(HugeHost, TwoPagesOfAMillionCharactersAreJoined) {
  EXPECT_EQ(quillet->SendCommandGetAll(u"TWO"), RowsOf(u"SOME TEXT", kHuge / kRowWidth) + u")>2/2");
}

TEST_F(HugeHost, ADisplayOfAMillionCharactersIsCountedWhole) {
  std::u16string display = u"--- RLR ---\n";
  for (const std::u16string_view line :
       {u"10 SSR VGML AF HK1/S5/P1", u" 10 OSI AF VIP/P1", u"10 FHE PAX 057-1234567892", u" 41 FV PAX AF/S5-6/P1"}) {
    display += LinesOf(line, 4000);
  }
  RetrieveDisplay(display);
  DisplayScans scans(module);
  EXPECT_EQ(scans.Count(kSpecialServiceElements), 4000);
  EXPECT_EQ(scans.Count(kManualTktElements), 4000);
  EXPECT_EQ(scans.Count(kATXSegments), 0);
  EXPECT_EQ(scans.Count(kMCOElements), 0);
  EXPECT_EQ(scans.Count(kMiscTktInfoElements), 0);
}

// Lines count in 16 bits.
TEST_F(HugeHost, ADisplayOfMoreLinesThanCanBeCountedOverflows) {
  RetrieveDisplay(LinesOf(u"10 SSR VGML AF HK1", 33'000));
  DisplayScans scans(module);
  CPNR pnr(module);
  EXPECT_TRUE(RaisesNumber(6, [&] { scans.Count(kSpecialServiceElements); }));
  EXPECT_TRUE(RaisesNumber(6, [&] { pnr.CreationDate(); }));
}

}  // namespace
}  // namespace wendrill::flow
