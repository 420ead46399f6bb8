#include "batch/packing.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "support/raises.h"

namespace wendrill::testing {
namespace {

using Texts = std::vector<std::u16string>;

Texts EntriesOf(TextView command, TextView separator = u"") {
  Texts entries;
  AppendEntries(command, separator, entries);
  return entries;
}

std::u16string Letters(std::size_t count, char16_t letter = u'x') {
  return std::u16string(count, letter);
}

TEST(AppendEntries, CutsACommandAtEverySemicolon) {
  EXPECT_EQ(EntriesOf(u"AN15JUN;SS1Y1;AP 123"), (Texts{u"AN15JUN", u"SS1Y1", u"AP 123"}));
}

TEST(AppendEntries, CutsAtTheGivenSeparatorInstead) {
  EXPECT_EQ(EntriesOf(u"A;B//C/D//E", u"//"), (Texts{u"A;B", u"C/D", u"E"}));
}

TEST(AppendEntries, CutsBeforeEveryTransmitMarker) {
  EXPECT_EQ(EntriesOf(u"A<XMIT>B<XMIT>;C"), (Texts{u"A", u"<XMIT>B", u"<XMIT>", u"C"}));
}

TEST(AppendEntries, CutsAtTheTextsOwnCutMarkToo) {
  EXPECT_EQ(EntriesOf(u"A\u00A4B"), (Texts{u"A", u"B"}));
}

TEST(AppendEntries, OfAnEmptyCommandAddsNothing) {
  EXPECT_EQ(EntriesOf(u""), Texts{});
  EXPECT_EQ(EntriesOf(u";;A;;"), Texts{u"A"});
}

TEST(AppendEntries, KeepsBlanks) {
  EXPECT_EQ(EntriesOf(u" A ; "), (Texts{u" A ", u" "}));
}

TEST(AppendEntries, CountsInSixteenBits) {
  std::u16string command;
  for (int entry = 0; entry < 32767; ++entry) {
    command += u"A;";
  }
  EXPECT_EQ(EntriesOf(command).size(), 32767U);
  EXPECT_TRUE(RaisesNumber(6, [&] { EntriesOf(command + u"A"); }));
}

TEST(Packed, JoinsShortEntriesIntoOneHostEntryWithSemicolons) {
  EXPECT_EQ(Packed({u"AN", u"SS", u"AP"}), Texts{u"AN;SS;AP"});
}

TEST(Packed, NeverJoinsTo240CharactersOrMore) {
  // 119 + 1 + 119 = 239 still fits, 119 + 1 + 120 = 240 does not.
  EXPECT_EQ(Packed({Letters(119), Letters(119)}), Texts{Letters(119) + u";" + Letters(119)});
  EXPECT_EQ(Packed({Letters(119), Letters(120)}), (Texts{Letters(119), Letters(120)}));
}

TEST(Packed, SingleEntryOf240CharactersOrMoreIsPackedAlone) {
  EXPECT_EQ(Packed({u"A", Letters(240), u"B"}), (Texts{u"A", Letters(240), u"B"}));
  EXPECT_EQ(Packed({Letters(500), u"B"}), (Texts{Letters(500), u"B"}));
}

TEST(Packed, EntryThatStartsWithRuIsAlwaysAtTheHeadOfAPackedEntryOfItsOwnMaking) {
  EXPECT_EQ(Packed({u"A", u"RU1A", u"RU2B", u"C"}), (Texts{u"A", u"RU1A", u"RU2B;C"}));
  EXPECT_EQ(Packed({u"RU1A"}), Texts{u"RU1A"});
  EXPECT_EQ(Packed({u"A", u"ru1", u"XRU"}), Texts{u"A;ru1;XRU"});
}

TEST(Packed, EntryContainingTheTransmitMarkerEndsItsPackedEntryAndTheMarkerItselfIsNotSent) {
  EXPECT_EQ(Packed({u"A", u"<XMIT>B", u"C", u"D"}), (Texts{u"A;B", u"C;D"}));
  EXPECT_EQ(Packed({u"<XMIT>B", u"C"}), (Texts{u"B", u"C"}));
}

TEST(Packed, KeepsTheSemicolonBeforeAMarkerThatStoodAlone) {
  EXPECT_EQ(Packed(EntriesOf(u"A<XMIT>;B")), (Texts{u"A;", u"B"}));
}

TEST(Packed, CountsTheMarkerWhenItMeasures) {
  EXPECT_EQ(Packed({Letters(230), u"<XMIT>AB"}), Texts({Letters(230) + u";AB"}));  // 230 + 1 + 8 = 239
  EXPECT_EQ(Packed({Letters(230), u"<XMIT>ABC"}), (Texts{Letters(230), u"ABC"}));  // 240
}

TEST(Packed, LeavesOutAPackedEntryWithoutText) {
  EXPECT_EQ(Packed({u"<XMIT>", u"A"}), Texts{u"A"});
  EXPECT_EQ(Packed({u"<XMIT>"}), Texts{});
  EXPECT_EQ(Packed({}), Texts{});
}

// Whatever the entries: the limit holds, nothing is lost, order stays.
TEST(Packed, KeepsItsPromisesOnRandomEntries) {
  std::mt19937 random(7);
  const auto upto = [&](int most) { return std::uniform_int_distribution<int>(0, most)(random); };
  for (int round = 0; round < 500; ++round) {
    Texts entries;
    std::u16string text;
    for (int entry = upto(30); entry >= 0; --entry) {
      const std::u16string body = Letters(std::size_t{1} + static_cast<std::size_t>(upto(upto(3) == 0 ? 300 : 40)),
                                          static_cast<char16_t>(u'a' + upto(25)));
      text += body;
      const int kind = upto(9);
      entries.push_back(kind == 0 ? u"RU" + body : kind == 1 ? u"<XMIT>" + body : body);
      text.insert(text.size() - body.size(), kind == 0 ? u"RU" : u"");
    }
    std::u16string joined;
    for (const auto& packed : Packed(entries)) {
      EXPECT_TRUE(packed.size() < 240 || !Contains(packed, u";")) << round;
      EXPECT_FALSE(Contains(packed, u"<XMIT>")) << round;
      EXPECT_FALSE(Contains(packed, u";RU")) << round;
      joined += Replaced(packed, u";", u"");
    }
    EXPECT_EQ(joined, text) << round;
  }
}

}  // namespace
}  // namespace wendrill::testing
