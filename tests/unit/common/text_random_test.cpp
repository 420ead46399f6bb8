// The fast searches of text.h against slow obvious ones, on random texts.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "common/text.h"

namespace wendrill::testing {
namespace {

class RandomTexts : public ::testing::Test {
 protected:
  std::size_t Below(std::size_t limit) { return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_); }

  std::u16string Text(TextView alphabet, std::size_t longest) {
    std::u16string text(Below(longest + 1), u'\0');
    std::ranges::generate(text, [&] { return alphabet[Below(alphabet.size())]; });
    return text;
  }

 private:
  std::mt19937 random_{20080612};
};

bool IsLineBreak(char16_t character) {
  return character == u'\r' || character == u'\n';
}

std::vector<std::u16string> SlowLines(const std::u16string& text) {
  std::vector<std::u16string> lines;
  std::u16string line;
  const bool broken = std::ranges::any_of(text, IsLineBreak);
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (IsLineBreak(text[i])) {
      i += text.compare(i, 2, u"\r\n") == 0 ? 1 : 0;
      lines.push_back(line);
      line.clear();
      continue;
    }
    line.push_back(text[i]);
    if (!broken && line.size() == 80) {
      lines.push_back(line);
      line.clear();
    }
  }
  if (!line.empty()) {
    lines.push_back(line);
  }
  return lines;
}

void ExpectTheSameLines(const std::u16string& text) {
  const std::vector<std::u16string> expected = SlowLines(text);
  DisplayLines lines(text);
  for (std::size_t i = 0; i < expected.size(); ++i) {
    ASSERT_FALSE(lines.AtEnd()) << "before line " << i + 1 << " of [" << ToUtf8(text) << "]";
    ASSERT_EQ(lines.Peek(), expected[i]);
    ASSERT_EQ(lines.Next(), expected[i]) << "line " << i + 1 << " of [" << ToUtf8(text) << "]";
    ASSERT_EQ(LineOf(text, static_cast<std::int32_t>(i) + 1), expected[i]);
  }
  ASSERT_TRUE(lines.AtEnd()) << "[" << ToUtf8(text) << "]";
  ASSERT_EQ(lines.Next(), u"");
  ASSERT_EQ(LineOf(text, static_cast<std::int32_t>(expected.size()) + 1), u"");
}

TEST_F(RandomTexts, AreCutIntoTheLinesThatASlowSplitterFinds) {
  const std::vector<std::u16string> alphabets = {u"AB ",
                                                 u"A \r\n",
                                                 u"\r\n",
                                                 u"ABCDEFGHIJKLMNOPQRSTUVWXYZ 0123456789\n",
                                                 u"ABCDEFGHIJKLMNOPQRSTUVWXYZ 0123456789/-.*\r",
                                                 std::u16string(u"ABCDEFGHIJKLMNOPQRSTUVWXYZ\t\v\f\r\n\0", 32)};
  for (int round = 0; round < 400; ++round) {
    for (const std::u16string& alphabet : alphabets) {
      ExpectTheSameLines(Text(alphabet, round % 2 == 0 ? 40 : 400));
    }
  }
}

std::ptrdiff_t SlowColumnOf(const std::u16string& text, const std::u16string& sought, std::size_t from) {
  for (std::size_t column = from; column - 1 + sought.size() <= text.size(); ++column) {
    if (text.substr(column - 1, sought.size()) == sought) {
      return static_cast<std::ptrdiff_t>(column);
    }
  }
  return 0;
}

TEST_F(RandomTexts, AreSearchedAsASlowSearchDoes) {
  for (int round = 0; round < 20000; ++round) {
    constexpr TextView kTexts[] = {u"AB", u"ABCDEFGH ", u"AB ", u"A      "};
    const std::u16string text = Text(kTexts[round % 4], 100);
    const std::u16string sought = Text(round % 2 == 0 ? u"AB" : u"A ", 3) + (round % 5 == 0 ? u" " : u"A");
    const std::size_t from = Below(110) + 1;
    ASSERT_EQ(ColumnOf(text, sought, static_cast<std::ptrdiff_t>(from)), SlowColumnOf(text, sought, from))
        << ToUtf8(sought) << " from " << from << " in " << ToUtf8(text);
  }
}

TEST_F(RandomTexts, HoldAMarkInTheLinesInWhichASearchFindsIt) {
  const std::vector<std::u16string> alphabets = {u"AB", u"AB\n", u"ABCDEFGHIJ \r\n", u"ABCDEFGHIJ "};
  for (int round = 0; round < 2000; ++round) {
    const std::u16string text = Text(alphabets[static_cast<std::size_t>(round) % alphabets.size()], 600);
    const std::u16string mark = round % 2 == 0 ? u"AB" : u"ABA";
    MarkInLines marks(text, mark);
    for (DisplayLines lines(text); !lines.AtEnd();) {
      const TextView line = lines.Next();
      const bool skipped = Below(4) == 0;  // nobody has to ask about every line
      ASSERT_TRUE(skipped || marks.IsIn(line) == (SlowColumnOf(std::u16string(line), mark, 1) != 0)) << ToUtf8(line);
    }
  }
}

std::u16string Joined(const std::vector<std::u16string>& fields, const std::u16string& delimiter) {
  std::u16string text = fields.front();
  for (auto field = fields.begin() + 1; field != fields.end(); ++field) {
    text += delimiter + *field;
  }
  return text;
}

TEST_F(RandomTexts, JoinedFromFieldsHaveTheseFields) {
  for (int round = 0; round < 2000; ++round) {
    std::vector<std::u16string> fields(Below(8) + 1);
    std::ranges::generate(fields, [&] { return Text(u"AB ", 30); });
    const std::u16string delimiter = round % 2 == 0 ? u"/" : u"; ";
    const std::u16string text = Joined(fields, delimiter);
    for (std::size_t i = 0; i < fields.size(); ++i) {
      ASSERT_EQ(FieldOf(text, static_cast<std::int32_t>(i) + 1, delimiter), fields[i]) << ToUtf8(text);
    }
    ASSERT_EQ(FieldOf(text, static_cast<std::int32_t>(fields.size()) + 1, delimiter), u"");
    ASSERT_EQ(Replaced(text, delimiter, u"|"), Joined(fields, u"|"));
  }
}

}  // namespace
}  // namespace wendrill::testing
