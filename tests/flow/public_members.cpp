#include "public_members.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include "common/text.h"
#include "public_member_tables.h"

namespace wendrill::flow {
namespace {

std::string TextOfFile(const std::filesystem::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// Behind the rich PNR's own scenario, which has one session, A, and answers nothing but retrievals.
constexpr std::string_view kEntries = R"toml(
[[session]]
name = "B"

[[reply]]
entry = "JD"
screen = "WORK AREAS"

[[reply]]
entry = "ER"
screen = "RP/PARXX0100 STORED"

[[reply]]
entry = "RU1"
screen = "*T*"

# Filled when it is read for the third time.
[[reply]]
entry = "LATE"
screen = "AT LAST"
late = 2

# Not filled within one wait of the simulated clock, and within the second.
[[reply]]
entry = "VERYLATE"
screen = "AT LAST"
late = 5

[[reply]]
entry = "AN"
pages = ["ONE\n)>1/2", "TWO\n)>2/2"]

[[reply]]
entry = "TTP"
pages = ["ONE\n)>1/2", "TWO\n)>2/2"]

[[reply]]
entry = "DISPLAY"
pages = ["ONE", "TWO\n."]

# A ticketing display goes on behind a bracket.
[[reply]]
entry = "TQT"
pages = ["FARE (1)", "TOTAL"]

[[reply]]
entry = "TICS"
pages = ["FIRST MD", "LAST"]
raw = true
)toml";

std::vector<MemberRun> AllRuns() {
  std::vector<MemberRun> all;
  for (const auto& table : {SessionRuns(), BatchRuns(), PnrRuns(), RecordRuns()}) {
    all.insert(all.end(), table.begin(), table.end());
  }
  return all;
}

}  // namespace

std::string NameOf(const MemberRun& run) {
  const std::string member = ToUtf8(run.member);
  return run.manner.empty() ? member : member + ", " + run.manner;
}

const std::vector<MemberRun>& MemberRuns() {
  static const std::vector<MemberRun> runs = AllRuns();
  return runs;
}

std::string MemberScenario() {
  return TextOfFile(std::filesystem::path(TEST_DATA) / "rich_pnr.toml") + std::string(kEntries);
}

std::string OlderTerminalScenario() {
  return MemberScenario() + "\n[terminal]\nversion = \"2.3P299\"\n";
}

}  // namespace wendrill::flow
