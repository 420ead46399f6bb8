#include "public_members.h"

#include <algorithm>
#include <cctype>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <utility>

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
  const auto add = [&all](RunsIn object, std::vector<MemberRun> table) {
    for (MemberRun& run : table) {
      run.runsIn = object;
      all.push_back(std::move(run));
    }
  };
  add(RunsIn::Quillet, SessionRuns());
  add(RunsIn::Another, EncodeUtilsRuns());
  add(RunsIn::Another, BatchRuns());
  add(RunsIn::Pnr, PnrRuns());
  add(RunsIn::Pnr, RecordRuns());
  return all;
}

}  // namespace

std::string NameOf(const MemberRun& run) {
  const std::string member = ToUtf8(run.member);
  return run.manner.empty() ? member : member + ", " + run.manner;
}

std::string TestNameOf(const MemberRun& run) {
  std::string name = NameOf(run);
  const auto isForeign = [](unsigned char character) { return std::isalnum(character) == 0; };
  std::replace_if(name.begin(), name.end(), isForeign, '_');
  return name;
}

void PrintTo(const MemberRun& run, std::ostream* out) {
  *out << NameOf(run);
}

const std::vector<MemberRun>& MemberRuns() {
  static const std::vector<MemberRun> runs = AllRuns();
  return runs;
}

void SetUpDesktop(simulator::World& world, const MemberRun& run) {
  std::string scenario = TextOfFile(std::filesystem::path(TEST_DATA) / "rich_pnr.toml") + std::string(kEntries);
  if (run.manner.find("older terminal") != std::string::npos) {
    scenario += "\n[terminal]\nversion = \"2.3P299\"\n";
  }
  world.LoadText(FromUtf8(scenario), u"members.toml");
  world.Time().SetStep(std::chrono::seconds(10));
}

void Prepare(MemberDesk& desk, const MemberRun& run) {
  if (run.prepare) {
    run.prepare(desk);
  }
}

}  // namespace wendrill::flow
