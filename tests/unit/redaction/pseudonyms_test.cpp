#include "redaction/pseudonyms.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

#include "redaction/host_words.h"

namespace wendrill::redaction {
namespace {

TEST(Pseudonyms, AreGivenInTheOrderOfNamesOfALength) {
  Pseudonyms pseudonyms;
  EXPECT_EQ(pseudonyms.Of(u"SMITH"), u"QBBBB");
  EXPECT_EQ(pseudonyms.Of(u"ANN"), u"QBB");
  EXPECT_EQ(pseudonyms.Of(u"JONES"), u"QBBBC");
  EXPECT_EQ(pseudonyms.Of(u"SMITH"), u"QBBBB");
  EXPECT_EQ(*pseudonyms.Find(u"JONES"), u"QBBBC");
  EXPECT_EQ(pseudonyms.Find(u"EVE"), nullptr);
}

TEST(Pseudonyms, LeaveAWordOfTheirFormAsItIs) {
  Pseudonyms pseudonyms;
  EXPECT_EQ(pseudonyms.Of(u"QBBBC"), u"QBBBC");
  EXPECT_EQ(pseudonyms.Of(u"SMITH"), u"QBBBB");
  EXPECT_EQ(pseudonyms.Of(u"JONES"), u"QBBBD");
}

TEST(Pseudonyms, ThatAreTakenAreNotGivenToAWordOfTheirForm) {
  Pseudonyms pseudonyms;
  EXPECT_EQ(pseudonyms.Of(u"SMITH"), u"QBBBB");
  EXPECT_EQ(pseudonyms.Of(u"QBBBB"), u"QBBBC");
}

TEST(Pseudonyms, HaveAFormThatNoNameHas) {
  for (const TextView name : {u"QIN", u"QIAN", u"QASIM", u"XAVIER", u"XU", u"QUYNH", u"VLK", u"SMRZ", u""}) {
    EXPECT_FALSE(HasFormOfPseudonym(name));
  }
  EXPECT_TRUE(HasFormOfPseudonym(u"QBBBB"));
  EXPECT_TRUE(HasFormOfPseudonym(u"XZZ"));
}

// 26 * 26 * 26 words of three letters less those that are the host's.
TEST(Pseudonyms, AreNeverSharedWhileWordsAreLeft) {
  Pseudonyms pseudonyms;
  std::set<std::u16string> given;
  std::size_t names = 0;
  std::size_t hosts = 0;
  std::u16string name(3, u'A');
  for (name[0] = u'A'; name[0] <= u'Z'; ++name[0]) {
    for (name[1] = u'A'; name[1] <= u'Z'; ++name[1]) {
      for (name[2] = u'A'; name[2] <= u'Z'; ++name[2]) {
        if (IsHostWord(name)) {
          ++hosts;
          continue;
        }
        ++names;
        const std::u16string& pseudonym = pseudonyms.Of(name);
        EXPECT_EQ(pseudonym.size(), 3U);
        EXPECT_FALSE(IsHostWord(pseudonym));
        given.insert(pseudonym);
      }
    }
  }
  EXPECT_GT(hosts, 20U);
  EXPECT_EQ(given.size(), names);
  EXPECT_EQ(pseudonyms.Of(u"\u00C9\u00C9\u00C9"), u"QBB");
}

}  // namespace
}  // namespace wendrill::redaction
