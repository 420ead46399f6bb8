#include "display_source.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "common/text.h"

namespace wendrill::tool {
namespace {

// A folder of files that is removed in the end.
class Sources : public ::testing::Test {
 protected:
  void SetUp() override {
    const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
    folder_ = std::filesystem::temp_directory_path() / (std::string("wendrill_") + test->name());
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  std::string File(const std::string& name, const std::string& content) {
    const auto path = folder_ / name;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << content;
    return path.string();
  }

  // The displays of the paths, each as its rows without the blanks at their ends, or as "! row: text".
  static std::vector<std::string> Displays(const std::vector<std::string>& paths, InputForm form = InputForm::Auto) {
    std::vector<std::string> displays;
    DisplaySource source(paths, form);
    while (auto found = source.Next()) {
      const ReadyDisplay ready = Prepared(std::move(*found));
      if (ready.error) {
        displays.push_back("! " + std::to_string(ready.error->row) + ": " + ToUtf8(ready.error->text));
        continue;
      }
      EXPECT_EQ(ready.text.size() % kRowWidth, 0U);
      std::string rows;
      for (DisplayLines lines(ready.text); !lines.AtEnd();) {
        rows += ToUtf8(TrimmedRight(lines.Next())) + "|";
      }
      displays.push_back(rows);
    }
    return displays;
  }

  std::vector<std::string> Texts(const std::string& content) { return Displays({File("a.txt", content)}); }
  std::vector<std::string> Lines(const std::string& content) { return Displays({File("a.jsonl", content)}); }

  std::filesystem::path folder_;
};

using Rows = std::vector<std::string>;

TEST_F(Sources, TextEndsBeforeAHeaderAfterABlankRow) {
  EXPECT_EQ(Texts("RP/A\n  1 RM X\n\nRP/B\n  1 RM Y\n"), Rows({"RP/A|  1 RM X|", "RP/B|  1 RM Y|"}));
  EXPECT_EQ(Texts("RP/A\nRP/B\n"), Rows({"RP/A|RP/B|"}));
  EXPECT_EQ(Texts("RP/A\n   \n  2 RM Y\n"), Rows({"RP/A||  2 RM Y|"}));
}

TEST_F(Sources, TextEndsBeforeTheTagsOfTheNextHeader) {
  EXPECT_EQ(Texts("--- TST ---\nRP/A\n\n--- RLR ---\nRP/B\n"), Rows({"--- TST ---|RP/A|", "--- RLR ---|RP/B|"}));
}

TEST_F(Sources, TextEndsAtAFormFeed) {
  EXPECT_EQ(Texts("RP/A\n\f\nRP/B\n\fRP/C\n\f"), Rows({"RP/A|", "RP/B|", "RP/C|"}));
}

TEST_F(Sources, TextMayHaveAnyLineBreaksAndAByteOrderMark) {
  EXPECT_EQ(Texts("\xEF\xBB\xBFRP/A\r\n  1 RM X\r\n\r\nRP/B"), Rows({"RP/A|  1 RM X|", "RP/B|"}));
}

TEST_F(Sources, TextOfBlankRowsHasNoDisplay) {
  EXPECT_EQ(Texts(""), Rows());
  EXPECT_EQ(Texts("\n \r\n\f\n"), Rows());
}

TEST_F(Sources, UnbrokenTextIsADisplayInEachLine) {
  std::string row = "RP/A";
  row.resize(80, ' ');
  std::string element = "  1 RM X";
  EXPECT_EQ(Texts(row + element + std::string(80 - element.size(), ' ') + "\n" + row + row + "  2"),
            Rows({"RP/A|  1 RM X|", "RP/A|RP/A|  2|"}));
}

TEST_F(Sources, ARowWiderThanADisplayIsTold) {
  EXPECT_EQ(Texts("RP/A\n  1 RM " + std::string(80, 'X') + "\n\nRP/B\n"),
            Rows({"! 2: the row has 87 characters, a display 80 columns", "RP/B|"}));
  EXPECT_EQ(Texts("RP/A" + std::string(100, ' ') + "\n"), Rows({"RP/A|"}));
}

TEST_F(Sources, ARowThatIsNotUtf8IsTold) {
  EXPECT_EQ(Texts("RP/A\n  1 RM CAF\xC9\n"), Rows({"! 2: the row is not UTF-8"}));
  EXPECT_EQ(Texts("RP/A\n  1 RM CAF\xC3\x89\n"), Rows({"RP/A|  1 RM CAF\xC3\x89|"}));
}

TEST_F(Sources, ADisplayWithoutEndIsToldAndTakesNoMemory) {
  std::string rows = "RP/A\n";
  for (int n = 0; n < 40000; ++n) {
    rows += "  1 RM X\n";
  }
  EXPECT_EQ(Texts(rows + "\nRP/B\n"),
            Rows({"! 0: the display has more than 32,767 rows or 16 million bytes", "RP/B|"}));
}

TEST_F(Sources, JsonHasADisplayInEachLine) {
  EXPECT_EQ(Lines(R"({"id":7,"display":"RP/A\n  1 RM X"})"
                  "\n\n"
                  R"({"display":"RP/B\r\n"})"
                  "\r\n"),
            Rows({"RP/A|  1 RM X|", "RP/B|"}));
}

TEST_F(Sources, JsonThatIsNoDisplayIsTold) {
  EXPECT_EQ(Lines("{\"id\":7}\n{broken\n{\"display\":3}\n[1]\n"),
            Rows({"! 0: the object has no string \"display\"", "! 0: the line is no object of JSON",
                  "! 0: the object has no string \"display\"", "! 0: the line is no object of JSON"}));
}

TEST_F(Sources, JsonIsReadToItsEnd) {
  const Rows wrong = {"! 0: the line is no object of JSON"};
  EXPECT_EQ(Lines("{\"display\":\"RP/A\"} {}\n"), wrong);
  EXPECT_EQ(Lines(std::string("{\"display\":\"RP/A\"}\0x\n", 21)), wrong);
  EXPECT_EQ(Lines("{\"display\":\"RP/A\\ud800\"}\n"), wrong);
  EXPECT_EQ(Lines("{\"display\":\"RP/A\xFF\"}\n"), wrong);
  EXPECT_EQ(Lines("{\"more\":" + std::string(1000000, '[') + "\n"), wrong);
}

TEST_F(Sources, JsonHasItsDisplayInTheOuterObjectAndTheLastOfTwoCounts) {
  EXPECT_EQ(Lines("{\"more\":{\"display\":\"RP/A\"},\"display\":\"RP/B\",\"last\":[\"display\",{\"id\":1}]}\n"),
            Rows({"RP/B|"}));
  EXPECT_EQ(Lines("{\"display\":\"RP/A\",\"display\":\"RP/B\"}\n"), Rows({"RP/B|"}));
  EXPECT_EQ(Lines("{\"display\":\"RP/A\",\"display\":[\"RP/B\"]}\n"),
            Rows({"! 0: the object has no string \"display\""}));
}

TEST_F(Sources, IdentifiersInJsonStayAsTheyAre) {
  DisplaySource source({File("a.jsonl",
                             "{\"id\":12345678901234567890123,\"display\":\"\"}\n{\"id\":1.50,\"display\":\"\"}\n"
                             "{\"id\":[1, {\"a\": null}],\"display\":\"\"}\n{\"id\":false,\"display\":\"\"}\n"
                             "{\"id\":[1],\"id\":\"\\u00e9\\\"\",\"display\":\"\"}\n")},
                       InputForm::Auto);
  for (const char* expected : {"12345678901234567890123", "1.50", "[1,{\"a\":null}]", "false", "\"é\\\"\""}) {
    auto found = source.Next();
    ASSERT_TRUE(found);
    EXPECT_EQ(Prepared(std::move(*found)).id, expected);
  }
}

TEST_F(Sources, IdentifiersAreTheInputsOrTheFileAndANumber) {
  const std::string file =
      File("a.jsonl", "{\"id\":\"x\\\"y\",\"display\":\"RP/A\"}\n{\"id\":7}\n\n{\"display\":\"RP/B\"}\n");
  DisplaySource source({file}, InputForm::Auto);
  EXPECT_EQ(Prepared(*source.Next()).id, R"("x\"y")");
  EXPECT_EQ(Prepared(*source.Next()).id, "7");
  EXPECT_EQ(Prepared(*source.Next()).id, "\"" + file + "#4\"");
  EXPECT_FALSE(source.Next());
}

TEST_F(Sources, FoldersAreWalkedInTheOrderOfNames) {
  File("b.txt", "RP/B\n");
  File("a/z.txt", "RP/Z\n");
  File(".hidden", "RP/H\n");
  File("c.jsonl", "{\"display\":\"RP/C\"}\n");
  EXPECT_EQ(Displays({folder_.string()}), Rows({"RP/Z|", "RP/B|", "RP/C|"}));
}

TEST_F(Sources, AFileThatCannotBeOpenedIsTold) {
  EXPECT_EQ(Displays({(folder_ / "gone").string(), File("b.txt", "RP/B\n")}),
            Rows({"! 0: the file cannot be opened", "RP/B|"}));
}

TEST_F(Sources, FormCanBeSaid) {
  const std::string file = File("a", "{\"display\":\"RP/A\"}\n");
  EXPECT_EQ(Displays({file}, InputForm::Text), Rows({"{\"display\":\"RP/A\"}|"}));
  EXPECT_EQ(Displays({File("b", "RP/A\n")}, InputForm::JsonLines), Rows({"! 0: the line is no object of JSON"}));
}

}  // namespace
}  // namespace wendrill::tool
