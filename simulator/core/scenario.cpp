#include "core/scenario.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
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

void ReadTerminal(TableReader& table, ScenarioTerminal& terminal) {
  terminal.version = table.Text(u"version", terminal.version);
  const bool readyGiven = table.Has(u"ready");
  const std::vector<std::int32_t> ready = table.Wholes(u"ready");
  terminal.refuses = table.Wholes(u"refuses");
  table.Finish();
  if (readyGiven && ready.size() != 2) {
    table.RefuseKey(u"ready", u"must be an array of two integers: the terminal's answer and the host's");
  }
  if (readyGiven) {
    terminal.terminalReady = ready[0];
    terminal.hostReady = ready[1];
  }
}

void ReadAlarm(TableReader& table, ScenarioAlarm& alarm) {
  alarm.present = table.Flag(u"present", alarm.present);
  alarm.method = table.Flag(u"method", alarm.method);
  alarm.code = table.Whole(u"code", alarm.code);
  table.Finish();
}

std::u16string ReadSession(TableReader& table) {
  // Finish comes before the check for missing keys: a misspelt key is reported as unknown, not its right spelling as
  // missing.
  const auto name = table.OptionalText(u"name");
  table.Finish();
  if (!name) {
    table.Refuse(table.Title() + u" needs \"name\"");
  }
  return *name;
}

// Collects all answers for one entry into one reply, at the position of the first.
class ReplyCollector {
 public:
  void Read(TableReader& table) {
    const auto entry = table.OptionalText(u"entry");
    const auto head = table.OptionalText(u"starts");
    auto answer = ReadAnswer(table, nullptr);
    if (entry.has_value() == head.has_value()) {
      table.Refuse(table.Title() + u" needs either \"entry\" or \"starts\"");
    }
    PlaceFor(entry.has_value(), entry ? *entry : *head).answers.push_back(std::move(answer));
  }

  std::vector<ScenarioReply> Take() { return std::move(replies_); }

 private:
  ScenarioReply& PlaceFor(bool exact, const std::u16string& entry) {
    const auto [place, isNew] = places_.try_emplace({exact, entry}, replies_.size());
    if (isNew) {
      replies_.push_back({exact, entry, {}});
    }
    return replies_[place->second];
  }

  std::map<std::pair<bool, std::u16string>, std::size_t> places_;
  std::vector<ScenarioReply> replies_;
};

std::shared_ptr<const ScenarioAnswer> ReadUnknown(std::optional<TableReader> table) {
  const TomlTable none;
  const TomlSource nowhere;
  TableReader reader = table ? std::move(*table) : TableReader(nowhere, none, 0, {});
  return ReadAnswer(reader, kUnknownScreen);
}

void ReadTables(TableReader& top, Scenario& scenario) {
  auto terminal = top.Table(u"terminal", u"[terminal]");
  auto alarm = top.Table(u"alarm", u"[alarm]");
  auto sessions = top.Tables(u"session", u"[[session]]");
  auto replies = top.Tables(u"reply", u"[[reply]]");
  auto unknown = top.Table(u"unknown", u"[unknown]");
  auto pnrs = top.Tables(u"pnr", u"[[pnr]]");
  top.Finish();
  if (terminal) {
    ReadTerminal(*terminal, scenario.terminal);
  }
  if (alarm) {
    ReadAlarm(*alarm, scenario.alarm);
  }
  std::transform(sessions.begin(), sessions.end(), std::back_inserter(scenario.sessions), ReadSession);
  ReplyCollector collector;
  for (TableReader& reply : replies) {
    collector.Read(reply);
  }
  scenario.replies = collector.Take();
  scenario.unknown = ReadUnknown(std::move(unknown));
  std::transform(pnrs.begin(), pnrs.end(), std::back_inserter(scenario.pnrs), ReadPnr);
}

template <typename Predicate>
const ScenarioPnr* FirstPnr(const std::vector<ScenarioPnr>& pnrs, Predicate matches) {
  const auto found = std::find_if(pnrs.begin(), pnrs.end(), matches);
  return found == pnrs.end() ? nullptr : &*found;
}

}  // namespace

bool ScenarioReply::Matches(std::u16string_view sent) const {
  return exact ? sent == entry : StartsWith(sent, entry);
}

bool ScenarioPnr::IsRetrievedBy(std::u16string_view entry) const {
  if (std::find(entries.begin(), entries.end(), entry) != entries.end()) {
    return true;
  }
  return !recordLocator.empty() && entry == std::u16string(kRetrievalHead) + recordLocator;
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
  TableReader top(source, document, 1, u"the scenario");
  ReadTables(top, *scenario);
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
