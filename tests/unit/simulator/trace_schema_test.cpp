// The JSON schema of traces: the committed file is what the table of kinds makes, and the page for readers has the same
// kinds and members.
#include "schema/trace_schema.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "trace/kinds.h"

namespace wendrill::simulator {
namespace {

const std::filesystem::path kDocs = std::filesystem::path(TEST_DATA) / ".." / ".." / "docs";

std::string TextOf(const std::filesystem::path& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

TEST(TraceSchemaFile, IsWhatTheTableOfKindsMakes) {
  EXPECT_EQ(TextOf(kDocs / "trace.schema.json"), TraceSchema())
      << "write it again: build/native/simulator/schema/trace_schema > docs/trace.schema.json";
}

// The rows of the page's table from one kind to the next.
std::string RowsOf(const std::string& page, std::string_view kind) {
  const std::size_t start = page.find("\n| `" + std::string(kind) + "` |");
  if (start == std::string::npos) {
    return {};
  }
  const std::size_t next = std::min(page.find("\n| `", start + 1), page.find("\n| every", start + 1));
  return page.substr(start, next - start);
}

TEST(TraceSchemaFile, ThePageForReadersNamesEachKindAndMember) {
  const std::string page = TextOf(kDocs / "trace.md");
  const auto expectMembers = [&](const trace::Kind& kind) {
    const std::string rows = RowsOf(page, kind.name);
    ASSERT_FALSE(rows.empty()) << kind.name;
    for (const trace::Member& member : kind.members) {
      const std::string cell =
          "`" + std::string(member.name) + "`" + (member.presence == trace::Presence::Optional ? "?" : "");
      EXPECT_TRUE(member.name == "kind" || rows.find(cell) != std::string::npos) << kind.name << ": " << cell;
    }
  };
  expectMembers(trace::kRun);
  for (const trace::Kind& kind : trace::kKinds) {
    expectMembers(kind);
  }
}

}  // namespace
}  // namespace wendrill::simulator
