#include "core/scenario.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <tuple>
#include <utility>

#include "common/text.h"
#include "core/built_in_text.h"
#include "core/gate.h"
#include "core/scenario_parts.h"

namespace wendrill::simulator {
namespace {

constexpr std::int32_t kFileNotFound = 53;
constexpr std::u16string_view kRetrievalHead = u"RT";
constexpr char16_t kUnknownScreen[] = u"ENTRY NOT UNDERSTOOD";

void ReadTerminal(const TableReader& table, ScenarioTerminal& terminal) {
  terminal.version = table.Text(u"version");
  terminal.refuses = table.Wholes(u"refuses");
  terminal.silent = table.Wholes(u"silent");
  if (const auto ready = table.Wholes(u"ready"); !ready.empty()) {
    terminal.terminalReady = ready[0];
    terminal.hostReady = ready[1];
  }
}

void ReadAlarm(const TableReader& table, ScenarioAlarm& alarm) {
  alarm.present = table.Flag(u"present");
  alarm.method = table.Flag(u"method");
  alarm.code = table.Whole(u"code");
}

EntryMatcher ReadMatcher(const TableReader& table) {
  for (const MatchKind kind : {MatchKind::Entry, MatchKind::Starts, MatchKind::Contains, MatchKind::Like}) {
    if (auto text = table.OptionalText(KeyOf(kind))) {
      return {kind, std::move(*text)};
    }
  }
  return {};  // not reached: TableReader rejects a [[reply]] table that has none of these keys
}

// Groups the [[reply]] tables: tables with equal matcher, session and state become one ScenarioReply, at the position
// of the first table of the group.
class ReplyCollector {
 public:
  void Read(const TableReader& table) {
    auto answer = ReadAnswer(table, nullptr);
    answer->then = table.OptionalText(u"then");
    answer->refuses = table.Flag(u"refuses");
    answer->optional = table.Flag(u"optional");
    PlaceFor(ReadMatcher(table), ReadCircumstances(table)).answers.push_back(std::move(answer));
  }

  std::vector<ScenarioReply> Take() { return std::move(replies_); }

 private:
  ScenarioReply& PlaceFor(EntryMatcher matcher, Circumstances where) {
    const auto [place, isNew] = places_.try_emplace({matcher.kind, matcher.text, where}, replies_.size());
    if (isNew) {
      replies_.push_back({std::move(matcher), std::move(where), {}});
    }
    return replies_[place->second];
  }

  std::map<std::tuple<MatchKind, std::u16string, Circumstances>, std::size_t> places_;
  std::vector<ScenarioReply> replies_;
};

std::shared_ptr<const ScenarioAnswer> ReadUnknown(std::optional<TableReader> table) {
  const TomlTable none;
  const TomlSource nowhere;
  const TableReader reader = table ? *table : TableReader(nowhere, none, 0, *ScenarioShape().Find(u"unknown")->table);
  return ReadAnswer(reader, kUnknownScreen);
}

void ReadTables(const TableReader& top, Scenario& scenario) {
  if (const auto terminal = top.Table(u"terminal")) {
    ReadTerminal(*terminal, scenario.terminal);
  }
  if (const auto alarm = top.Table(u"alarm")) {
    ReadAlarm(*alarm, scenario.alarm);
  }
  for (const TableReader& session : top.Tables(u"session")) {
    scenario.sessions.push_back(session.Text(u"name"));
  }
  ReplyCollector collector;
  for (const TableReader& reply : top.Tables(u"reply")) {
    collector.Read(reply);
  }
  scenario.replies = collector.Take();
  scenario.unknown = ReadUnknown(top.Table(u"unknown"));
  const auto derive = top.Table(u"derive");
  const DeriveDefaults defaults = derive ? ReadDerive(*derive) : DeriveDefaults();
  for (const TableReader& pnr : top.Tables(u"pnr")) {
    scenario.pnrs.push_back(ReadPnr(pnr, defaults, scenario.warnings));
  }
  if (const auto strict = top.Table(u"strict")) {
    scenario.strict = strict->Flag(u"on");
  }
}

template <typename Predicate>
const ScenarioPnr* FirstPnr(const std::vector<ScenarioPnr>& pnrs, Predicate matches) {
  const auto found = std::find_if(pnrs.begin(), pnrs.end(), matches);
  return found == pnrs.end() ? nullptr : &*found;
}

}  // namespace

bool Circumstances::Hold(std::u16string_view inSession, std::u16string_view inState) const {
  return (!session || *session == inSession) && (!when || *when == inState);
}

bool Circumstances::Cover(const Circumstances& other) const {
  return (!session || session == other.session) && (!when || when == other.when);
}

bool ScenarioPnr::IsRetrievedBy(std::u16string_view entry) const {
  const auto all = RetrievingEntries();
  return std::find(all.begin(), all.end(), entry) != all.end();
}

std::vector<std::u16string> ScenarioPnr::RetrievingEntries() const {
  std::vector<std::u16string> all = entries;
  if (!recordLocator.empty()) {
    all.insert(all.begin(), std::u16string(kRetrievalHead) + recordLocator);
  }
  return all;
}

const ScenarioPnr* Scenario::PnrOf(std::u16string_view entry) const {
  return FirstPnr(pnrs, [entry](const ScenarioPnr& pnr) { return pnr.IsRetrievedBy(entry); });
}

const ScenarioPnr* Scenario::PnrOnDisplay() const {
  return FirstPnr(pnrs, [](const ScenarioPnr& pnr) { return pnr.onDisplay; });
}

std::shared_ptr<const Scenario> ParseScenario(std::string_view toml, std::u16string_view name) {
  auto scenario = std::make_shared<Scenario>();
  scenario->name = name;
  const TomlSource source{scenario->name};
  const TomlTable document = ParseToml(toml, source);
  const TableReader top(source, document, 1, ScenarioShape());
  ReadTables(top, *scenario);
  scenario->index = ScenarioIndex(scenario->replies, scenario->pnrs);
  return scenario;
}

std::shared_ptr<const Scenario> ReadScenarioFile(std::u16string_view path) {
  const std::filesystem::path file{std::u16string(path)};
  std::error_code unused;
  std::ifstream stream(file, std::ios::binary);
  if (!stream || std::filesystem::is_directory(file, unused)) {
    Fail(kFileNotFound, u"The scenario file \"" + std::u16string(path) + u"\" was not found or cannot be opened.");
  }
  const std::string text{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  return ParseScenario(text, path);
}

std::shared_ptr<const Scenario> BuiltInScenario() {
  return ParseScenario(kBuiltInText, u"built-in scenario");
}

}  // namespace wendrill::simulator
