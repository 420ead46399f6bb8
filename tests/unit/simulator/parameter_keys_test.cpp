#include "core/parameter_keys.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>

#include "simulated_world.h"

namespace wendrill::simulator {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// What a pattern's first group finds in the source of the library.
std::set<std::string> InTheLibrary(const std::string& pattern) {
  const auto source = std::filesystem::path(TEST_DATA) / ".." / ".." / "src";
  const std::regex expression(pattern);
  std::set<std::string> found;
  for (const auto& file : std::filesystem::recursive_directory_iterator(source)) {
    if (!file.is_regular_file()) {
      continue;
    }
    std::ifstream stream(file.path(), std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end; ++match) {
      found.insert((*match)[1]);
    }
  }
  return found;
}

bool IsKind(const std::string& name) {
  return UnknownKindWarning(Value(FromUtf8(name))).empty();
}

TEST(ParameterKeys, AreThoseThatTheLibraryReads) {
  auto keys = InTheLibrary(R"re((?:BooleanKey|TextKey)\(\w+, u"(\w+)")re");
  for (const auto& constant :
       InTheLibrary(R"re((?:constexpr (?:TextView|std::u16string_view)) k(?:Kind|Prefixes|Index)Key = u"([^"]+)")re")) {
    keys.insert(constant);
  }
  EXPECT_EQ(keys.size(), 8u);
  for (const std::string& key : keys) {
    EXPECT_TRUE(IsParameterKey(FromUtf8(key))) << key;
  }
  EXPECT_FALSE(IsParameterKey(u"intkeyindex"));
}

TEST(ParameterKeys, TheKindsAreThoseOfTheLibrary) {
  auto kinds = InTheLibrary(R"re(\.askedAs = u"([^"]+)")re");
  kinds.merge(InTheLibrary(R"re(OtherKind\{u"([^"]+)")re"));
  EXPECT_EQ(kinds.size(), 15u);
  for (const std::string& kind : kinds) {
    EXPECT_TRUE(IsKind(kind)) << kind;
  }
  EXPECT_FALSE(IsKind("SRS"));
}

class MisspelledKeys : public SimulatedWorld {
 protected:
  void SetUp() override { Load(u"session = [{ name = 'A' }]"); }

  std::vector<std::string> Warnings() {
    std::vector<std::string> warnings;
    for (const auto& warning : world.Findings().Warnings()) {
      warnings.push_back(ToUtf8(warning));
    }
    return warnings;
  }
};

TEST_F(MisspelledKeys, AKeyThatNothingReadsIsAWarning) {
  const auto bag = world.MakeParamBag();
  bag->PutItem(u"intKeyIndx", std::int32_t{2});
  bag->PutItem(u"zebra", true);
  EXPECT_THAT(Warnings(), IsEmpty());  // the library has not looked at the bag
  bag->Get(u"intKeyIndex");
  EXPECT_THAT(Warnings(), ElementsAre("nothing reads intKeyIndx; nearest: intKeyIndex", "nothing reads zebra"));
  EXPECT_EQ(ToUtf8(world.Report()),
            "test.toml: 2 warnings\r\n  nothing reads intKeyIndx; nearest: intKeyIndex\r\n  nothing reads zebra\r\n");
}

TEST_F(MisspelledKeys, AKeyThatTheLibraryKnowsOrStoresOrThatTheScriptReadsIsNone) {
  const auto bag = world.MakeParamBag();
  bag->PutItem(u"blnKeyClear", true);   // known, though this call does not ask for it
  bag->PutItem(u"strKeyText", u"");     // stored by the library below
  bag->PutItem(u"note", u"of my own");  // read by the script below
  bag->Get(u"intKeyIndex");
  bag->Set(u"strKeyText", u"TEXT");
  bag->Item(u"note");
  EXPECT_THAT(Warnings(), IsEmpty());
}

TEST_F(MisspelledKeys, ABagThatTheLibraryNeverReadsIsTheScriptsOwn) {
  const auto bag = world.MakeParamBag();
  bag->PutItem(u"intKeyIndx", std::int32_t{2});
  EXPECT_THAT(Warnings(), IsEmpty());
}

TEST_F(MisspelledKeys, AKindThatThereIsNotIsAWarning) {
  const auto bag = world.MakeParamBag();
  bag->PutItem(u"strKeyPNRElement", u"SRS");
  bag->Get(u"strKeyPNRElement");
  bag->Get(u"strKeyPNRElement");
  bag->PutItem(u"strKeyPNRElement", u"SSR");
  bag->Get(u"strKeyPNRElement");
  EXPECT_THAT(Warnings(), ElementsAre("there is no kind of element SRS; nearest: SSR"));
}

}  // namespace
}  // namespace wendrill::simulator
