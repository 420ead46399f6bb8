#include "core/report.h"

#include <algorithm>
#include <utility>

#include "core/parameter_keys.h"

namespace wendrill::simulator {
namespace {

bool Holds(const std::vector<std::u16string>& lines, std::u16string_view line) {
  return std::find(lines.begin(), lines.end(), line) != lines.end();
}

// The items of the member `list` of every summary, in the order of the summaries.
std::vector<std::u16string> Joined(const std::vector<RunSummary>& summaries,
                                   std::vector<std::u16string> RunSummary::*list) {
  std::vector<std::u16string> all;
  for (const RunSummary& summary : summaries) {
    all.insert(all.end(), (summary.*list).begin(), (summary.*list).end());
  }
  return all;
}

}  // namespace

std::u16string RunReport::Text() const {
  std::u16string text;
  for (const RunSummary& summary : Summaries()) {
    text += summary.text;
  }
  return text;
}

std::vector<std::u16string> RunReport::Unanswered() const {
  return Joined(Summaries(), &RunSummary::unanswered);
}

std::vector<std::u16string> RunReport::Unused() const {
  return Joined(Summaries(), &RunSummary::unused);
}

std::vector<std::u16string> RunReport::Warnings() const {
  return Joined(Summaries(), &RunSummary::warnings);
}

std::int32_t RunReport::Findings() const {
  std::size_t count = 0;
  for (const RunSummary& summary : Summaries()) {
    count += summary.unanswered.size() + summary.unused.size() + summary.warnings.size();
  }
  return static_cast<std::int32_t>(count);
}

void RunReport::Warn(std::u16string_view warning) {
  if (!warning.empty() && !Holds(warnings_, warning)) {
    warnings_.emplace_back(warning);
  }
}

void RunReport::NoteUnreadKey(std::u16string_view key) {
  if (!Holds(unreadKeys_, key)) {
    unreadKeys_.emplace_back(key);
  }
}

void RunReport::NoteReadKey(std::u16string_view key) {
  if (!readKeys_.contains(key)) {
    readKeys_.emplace(key);
  }
}

void RunReport::Begin(std::shared_ptr<ScenarioRun> run) {
  CloseUnusedParts();
  strictAsked_ = strictAsked_ || run->Script().strict;
  parts_.push_back({std::move(run), {}});
}

std::vector<RunSummary> RunReport::Summaries() const {
  std::vector<RunSummary> summaries;
  for (const Part& part : parts_) {
    const bool isInUse = &part == &parts_.back();
    summaries.push_back(part.run == nullptr
                            ? part.summary
                            : Summarize(*part.run, isInUse ? OwnWarnings() : std::vector<std::u16string>()));
  }
  if (parts_.empty()) {
    const auto nothingLoaded = std::make_shared<Scenario>();
    nothingLoaded->name = u"no scenario";
    summaries.push_back(Summarize(ScenarioRun(nothingLoaded), OwnWarnings()));
  }
  return summaries;
}

std::vector<std::u16string> RunReport::OwnWarnings() const {
  std::vector<std::u16string> warnings = warnings_;
  for (const std::u16string& key : unreadKeys_) {
    if (!readKeys_.contains(key)) {
      warnings.push_back(UnreadKeyWarning(key));
    }
  }
  return warnings;
}

void RunReport::CloseUnusedParts() {
  for (Part& part : parts_) {
    if (part.run.use_count() == 1) {
      part = {nullptr, Summarize(*part.run)};
    }
  }
  std::vector<Part> kept;
  for (Part& part : parts_) {
    const bool isTold = part.run == nullptr &&
                        (part.summary == RunSummary() || std::any_of(kept.begin(), kept.end(), [&](const Part& each) {
                           return each.run == nullptr && each.summary == part.summary;
                         }));
    if (!isTold) {
      kept.push_back(std::move(part));
    }
  }
  parts_ = std::move(kept);
}

}  // namespace wendrill::simulator
