// The scenarios that come with the simulator: no name of their PNRs survives, and what is hidden reads as before.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>

#include "core/scenario.h"
#include "derive/derivation.h"
#include "redaction/host_words.h"
#include "redaction/redactor.h"
#include "support/us_text.h"

namespace wendrill::redaction {
namespace {

constexpr std::int32_t kNames = 2;

std::set<std::u16string> WordsOf(TextView text) {
  std::set<std::u16string> found;
  LetterWords words(text);
  for (auto word = words.Next(); word; word = words.Next()) {
    if (word->Size() >= kLeastLetters) {
      found.insert(Capitals(word->In(text)));
    }
  }
  return found;
}

// The words of the surnames and first names, titles aside.
std::set<std::u16string> NamesOf(const simulator::ScenarioPnr& pnr) {
  std::set<std::u16string> names;
  const auto elements = pnr.collections.find(kNames);
  if (elements == pnr.collections.end()) {
    return names;
  }
  for (const auto& element : elements->second) {
    for (const std::size_t place : {2U, 3U}) {  // Initial, LastName
      if (place < element->contents.size()) {
        names.merge(WordsOf(testing::ToUsText(std::get<Value>(element->contents[place]))));
      }
    }
  }
  std::erase_if(names, [](const std::u16string& word) { return IsIn(kNoNames, word); });
  return names;
}

struct Totals {
  int pnrs = 0;
  int names = 0;
  int screens = 0;
};

void ExpectNone(const std::set<std::u16string>& names, TextView hidden) {
  const std::set<std::u16string> words = WordsOf(hidden);
  for (const std::u16string& name : names) {
    EXPECT_FALSE(words.contains(name)) << ToUtf8(name) << " in " << ToUtf8(hidden);
  }
}

void ExpectSameElements(const std::u16string& display, const std::u16string& hidden) {
  const simulator::DerivedPnr before = simulator::Derive(display);
  const simulator::DerivedPnr after = simulator::Derive(hidden);
  EXPECT_EQ(after.header.line, before.header.line);
  EXPECT_EQ(after.warnings.size(), before.warnings.size());
  ASSERT_EQ(after.elements.size(), before.elements.size());
  for (std::size_t i = 0; i < before.elements.size(); ++i) {
    EXPECT_EQ(after.elements[i].keyword, before.elements[i].keyword);
    EXPECT_EQ(after.elements[i].collection, before.elements[i].collection);
    EXPECT_EQ(after.elements[i].Number(), before.elements[i].Number());
  }
}

void Check(const simulator::Scenario& scenario, Totals& totals) {
  Redactor redactor;
  std::set<std::u16string> names;
  for (const simulator::ScenarioPnr& pnr : scenario.pnrs) {
    redactor.Learn(pnr.display);
    names.merge(NamesOf(pnr));
    ++totals.pnrs;
  }
  for (const simulator::ScenarioPnr& pnr : scenario.pnrs) {
    const std::u16string hidden = redactor.Hide(pnr.display);
    ExpectNone(names, hidden);
    ExpectSameElements(pnr.display, hidden);
  }
  for (const simulator::ScenarioReply& reply : scenario.replies) {
    for (const auto& answer : reply.answers) {
      for (const simulator::Screen& page : answer->pages) {
        ExpectNone(names, redactor.Hide(page.buffer));
        ++totals.screens;
      }
    }
  }
  for (const std::u16string& name : names) {
    EXPECT_TRUE(redactor.Tokens().contains(name)) << ToUtf8(name);
  }
  totals.names += static_cast<int>(names.size());
}

// SMITH, JOHN, ANN; the same with MILLER and TOM; MARTIN, EVE, LEO; SMITH, JOHN, MILLER, ANN, MARTIN, EVE.
TEST(ShippedScenarios, KeepNoName) {
  Totals totals;
  for (const auto& file : std::filesystem::directory_iterator(TEST_DATA)) {
    SCOPED_TRACE(file.path().filename().string());
    Check(*simulator::ReadScenarioFile(file.path().u16string()), totals);
  }
  EXPECT_EQ(totals.names, 3 + 5 + 3 + 6);
  EXPECT_EQ(totals.pnrs, 8);
  EXPECT_GT(totals.screens, 20);
}

}  // namespace
}  // namespace wendrill::redaction
