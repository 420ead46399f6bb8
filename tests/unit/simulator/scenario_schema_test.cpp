// The JSON schema: the committed file is what the table of keys makes, and the reader rejects what it rejects. That a
// real validator does so too is tested in tests/schema.
#include "schema/scenario_schema.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "simulated_world.h"

namespace wendrill::simulator {
namespace {

const std::filesystem::path kRoot = std::filesystem::path(TEST_DATA) / ".." / "..";

std::string TextOf(const std::filesystem::path& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

TEST(ScenarioSchemaFile, IsWhatTheTableOfKeysMakes) {
  EXPECT_EQ(TextOf(kRoot / "docs" / "scenario.schema.json"), ScenarioSchema())
      << "write it again: build/native/simulator/schema/scenario_schema > docs/scenario.schema.json";
}

TEST(ScenarioSchemaFile, TheReaderRejectsTheFilesThatTheValidatorMustReject) {
  int files = 0;
  for (const auto& file : std::filesystem::directory_iterator(kRoot / "tests" / "schema" / "broken")) {
    ++files;
    const std::string text = TextOf(file.path());
    EXPECT_TRUE(RaisesNumber(5, [&] { ParseScenario(text, u"test.toml"); })) << file.path();
  }
  EXPECT_GT(files, 0);
}

}  // namespace
}  // namespace wendrill::simulator
