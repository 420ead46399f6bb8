// The PNRs under hand_written/ say in their collections what their displays show, both written by hand: a display
// without its collections derives the same.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "common/text.h"
#include "common/text_forms.h"
#include "core/scenario.h"
#include "derive/derivation.h"

namespace wendrill::simulator {
namespace {

// The values that were written by hand although the display does not show them.
const std::set<std::string> kNotShown = {
    "ABC123 Cars 7 Passengers",   // the display's car segment has no "/P1"
    "RCH001 Cars 11 Passengers",  // nor this one "/P1-2"
};

std::vector<std::filesystem::path> Files() {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(TEST_DATA)) {
    files.push_back(entry.path());
  }
  std::ranges::sort(files);
  return files;
}

std::string TextOf(const Value& value) {
  return ToUtf8(ToText(value, UsTextForms()));
}

// A property's content as a string; the passengers of a car as "1,2".
std::string TextOf(const PropertyContent& content) {
  if (const auto* value = std::get_if<Value>(&content)) {
    return TextOf(*value);
  }
  std::string numbers;
  const auto& association = *std::get<std::shared_ptr<const ScenarioObject>>(content);
  for (const auto& passenger : *std::get<std::shared_ptr<const ScenarioList>>(association.contents[0])) {
    numbers += (numbers.empty() ? "" : ",") + TextOf(std::get<Value>(passenger->contents[0]));
  }
  return numbers;
}

struct TextOfDerived {
  std::string operator()(std::monostate /*nothing*/) const { return ""; }
  std::string operator()(TextView text) const { return ToUtf8(text); }
  std::string operator()(Date date) const { return TextOf(Value(date)); }
  std::string operator()(std::int32_t number) const { return std::to_string(number); }
  std::string operator()(const PassengerNumbers& numbers) const {
    std::string text;
    for (const std::u16string& number : numbers) {
      text += (text.empty() ? "" : ",") + ToUtf8(number);
    }
    return text;
  }
};

struct Comparison {
  int values = 0;
  std::set<std::string> different;
};

void CompareElement(const std::string& place, const ScenarioObject& written, const DerivedElement& derived,
                    Comparison& comparison) {
  ASSERT_EQ(written.type, derived.type) << place;
  EXPECT_EQ(written.kind, derived.kind) << place;
  for (std::size_t i = 0; i < written.contents.size(); ++i) {
    const std::string expected = TextOf(written.contents[i]);
    const std::string property = place + " " + ToUtf8(written.type->properties[i].name);
    const std::string found = std::visit(TextOfDerived{}, derived.contents.at(i));
    ++comparison.values;
    if (expected != found) {
      comparison.different.insert(property);
      EXPECT_TRUE(kNotShown.contains(property)) << property << ": " << expected << " and " << found;
    }
  }
}

void ComparePnr(const ScenarioPnr& pnr, Comparison& comparison) {
  const DerivedPnr derived = Derive(pnr.display);
  for (const DerivationWarning& warning : derived.warnings) {
    ADD_FAILURE() << "row " << warning.row << ": " << ToUtf8(warning.text);
  }
  for (const Collection& collection : kCollections) {
    const auto written = pnr.collections.find(collection.id);
    const std::string name = ToUtf8(pnr.recordLocator) + " " + ToUtf8(collection.name);
    std::vector<const DerivedElement*> elements;
    for (const DerivedElement& element : derived.elements) {
      if (Holds(collection, element)) {
        elements.push_back(&element);
      }
    }
    if (collection.id == kAllElements && written == pnr.collections.end()) {
      continue;  // all but one leave it out
    }
    ASSERT_EQ(elements.size(), written == pnr.collections.end() ? 0 : written->second.size()) << name;
    for (std::size_t i = 0; i < elements.size(); ++i) {
      const DerivedElement& element = *elements[i];
      if (collection.id == kAllElements) {
        EXPECT_EQ(TextOf(written->second[i]->contents[0]), ToUtf8(element.Text()));
        EXPECT_EQ(TextOf(written->second[i]->contents[1]), ToUtf8(element.Number()));
        comparison.values += 2;
      } else {
        CompareElement(name + " " + ToUtf8(element.Number()), *written->second[i], element, comparison);
      }
    }
  }
}

TEST(HandWritten, CollectionsAreWhatTheDisplayDerives) {
  Comparison comparison;
  int pnrs = 0;
  for (const auto& file : Files()) {
    const auto scenario = ReadScenarioFile(file.u16string());
    for (const ScenarioPnr& pnr : scenario->pnrs) {
      SCOPED_TRACE(file.filename().string());
      ComparePnr(pnr, comparison);
      ++pnrs;
    }
  }
  EXPECT_EQ(pnrs, 6);
  EXPECT_GT(comparison.values, 359);
  EXPECT_EQ(comparison.different, kNotShown);
}

TEST(HandWritten, HeadersAreWhatTheDisplayDerives) {
  for (const char* name : {"built_in", "rich_pnr"}) {
    const auto scenario =
        ReadScenarioFile(std::filesystem::path(TEST_DATA "/").u16string() + FromUtf8(name) + u".toml");
    const ScenarioPnr& pnr = scenario->pnrs.front();
    const DerivedHeader header = Derive(pnr.display).header;
    EXPECT_EQ(TextOf(pnr.header->contents[0]), ToUtf8(header.line)) << name;      // Line
    EXPECT_EQ(TextOf(pnr.header->contents[3]), ToUtf8(header.officeId)) << name;  // OfficeID
    EXPECT_EQ(ToUtf8(pnr.recordLocator), ToUtf8(header.recordLocator)) << name;
  }
}

}  // namespace
}  // namespace wendrill::simulator
