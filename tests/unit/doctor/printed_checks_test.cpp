#include "core/printed_checks.h"

#include <gtest/gtest.h>

namespace wendrill::doctor::testing {
namespace {

TEST(Report, TheTableNamesEachStateAndSumsUp) {
  EXPECT_EQ(
      "check   state    found\n"
      "------  -------  -----\n"
      "first   ok       fine\n"
      "second  warn     odd\n"
      "    -> Look at it.\n"
      "third   missing  gone\n"
      "    -> Type:\n"
      "         get it\n"
      "\n"
      "1 thing is missing, 1 warning.\n",
      Table({{"first", "fine"},
             {"second", "odd", State::Warn, "Look at it."},
             {"third", "gone", State::Missing, "Type:\n  get it"}}));
}

TEST(Report, JsonHasFourFieldsPerCheckAndTheStatus) {
  EXPECT_EQ(
      "{\n"
      "  \"checks\": [\n"
      "    {\n"
      "      \"check\": \"a \\\"b\\\"\",\n"
      "      \"found\": \"C:\\\\\xC3\xA9\",\n"
      "      \"state\": \"warn\",\n"
      "      \"what_to_do\": \"1\\n2\"\n"
      "    }\n"
      "  ],\n"
      "  \"status\": 1\n"
      "}\n",
      Json({{"a \"b\"", "C:\\\xC3\xA9", State::Warn, "1\n2"}}));
}

TEST(Report, JsonOfBrokenUtf8IsStillJson) {
  EXPECT_NE(std::string::npos, Json({{"a", "\xFF"}}).find("\xEF\xBF\xBD"));
}

TEST(Report, TheStatusIsTheWorstState) {
  EXPECT_EQ(State::Ok, StateOf({}));
  EXPECT_EQ(State::Missing, StateOf({{"a", "b", State::Missing}, {"c", "d", State::Warn}}));
}

}  // namespace
}  // namespace wendrill::doctor::testing
