#include "core/run_summary.h"

#include <algorithm>
#include <utility>

#include "common/text.h"
#include "core/differences.h"
#include "core/reachability.h"

namespace wendrill::simulator {
namespace {

constexpr std::u16string_view kLineEnd = u"\r\n";
constexpr std::u16string_view kIndent = u"  ";

// A section of the report: a heading with the number of items, then the lines of the items. The text of a section
// without items is empty.
class Section {
 public:
  Section(std::u16string_view name, std::u16string_view one, std::u16string_view several)
      : name_(name), one_(one), several_(several) {}

  void Add(std::u16string_view line) {
    ++count_;
    AddFurther(line);
  }
  void AddFurther(std::u16string_view line) { lines_.append(kIndent).append(line).append(kLineEnd); }

  std::u16string Text() const {
    if (count_ == 0) {
      return {};
    }
    std::u16string heading(name_);
    heading.append(u": ").append(DecimalText(count_)).append(u" ").append(count_ == 1 ? one_ : several_);
    return heading.append(kLineEnd).append(lines_);
  }

 private:
  std::u16string_view name_;
  std::u16string_view one_;
  std::u16string_view several_;
  std::int64_t count_ = 0;
  std::u16string lines_;
};

std::u16string OnOneLine(std::u16string_view entry) {
  const std::u16string quoted = InQuotes(entry);
  return quoted.substr(1, quoted.size() - 2);
}

// The line for an entry that nothing answered (`verb` is "sent") or for a retrieval that found no PNR (`verb` is
// "read"), such as: AN15JUNPARLOM  sent first in session A
// When `miss.entry` is empty, a script read the PNR on display while there was none. The line then begins with "the PNR
// on display" instead of an entry.
std::u16string MissLine(const Miss& miss, std::u16string_view verb) {
  std::u16string line = miss.entry.empty() ? u"the PNR on display" : OnOneLine(miss.entry);
  line.append(kIndent).append(verb);
  if (miss.times > 1) {
    line.append(u" ").append(DecimalText(miss.times)).append(u" times,");
  }
  return line.append(u" first in session ").append(miss.session);
}

void AddMisses(Section& section, const MissList& misses, std::u16string_view verb, NearestAnswers nearest) {
  for (const Miss& miss : misses.All()) {
    section.Add(MissLine(miss, verb));
    for (const std::u16string& line : nearest.LinesFor(miss)) {
      section.AddFurther(u"nearest: " + line);
    }
  }
}

std::vector<Answering> EverythingThatAnswers(const Scenario& scenario) {
  auto all = AnsweringReplies(scenario);
  auto pnrs = AnsweringPnrs(scenario);
  std::move(pnrs.begin(), pnrs.end(), std::back_inserter(all));
  return all;
}

// A reply or a PNR of the scenario, with its line in the file and its title in messages.
struct Placed {
  std::int32_t line;
  std::u16string title;
};

void SortByLine(std::vector<Placed>& placed) {
  std::stable_sort(placed.begin(), placed.end(),
                   [](const Placed& left, const Placed& right) { return left.line < right.line; });
}

std::vector<Placed> UnusedReplies(const ScenarioRun& run) {
  std::vector<Placed> unused;
  for (const ScenarioReply& reply : run.Script().replies) {
    for (const auto& answer : reply.answers) {
      if (!answer->optional && !run.IsUsed(*answer)) {
        unused.push_back({answer->line, TitleOf(reply, *answer)});
      }
    }
  }
  SortByLine(unused);
  return unused;
}

std::vector<Placed> UnusedPnrs(const ScenarioRun& run) {
  std::vector<Placed> unused;
  for (const ScenarioPnr& pnr : run.Script().pnrs) {
    if (!pnr.optional && !run.IsUsed(pnr)) {
      unused.push_back({pnr.line, TitleOf(pnr)});
    }
  }
  return unused;
}

void AddOverruns(Section& section, const ScenarioRun& run) {
  const auto add = [&](const std::u16string& title, std::int32_t line, std::u16string_view what) {
    if (const auto overrun = run.Overruns().find(line); overrun != run.Overruns().end()) {
      section.Add(title + u"; turn " + DecimalText(overrun->second.turn) + u" of " + DecimalText(overrun->second.of) +
                  u": the last " + std::u16string(what) + u" answered again");
    }
  };
  for (const ScenarioReply& reply : run.Script().replies) {
    add(TitleOf(reply, *reply.answers.back()), reply.answers.back()->line, u"reply");
  }
  for (const ScenarioPnr& pnr : run.Script().pnrs) {
    add(TitleOf(pnr), pnr.line, u"PNR");
  }
}

}  // namespace

std::u16string_view FileName(std::u16string_view path) {
  const std::size_t separator = path.find_last_of(u"/\\");
  return separator == std::u16string_view::npos ? path : path.substr(separator + 1);
}

RunSummary Summarize(const ScenarioRun& run, const std::vector<std::u16string>& furtherWarnings) {
  const Scenario& scenario = run.Script();
  const std::u16string_view name = FileName(scenario.name);
  RunSummary summary;
  Section unanswered(name, u"entry was not answered", u"entries were not answered");
  AddMisses(unanswered, run.Unanswered(), u"sent", NearestAnswers(EverythingThatAnswers(scenario)));
  for (const Miss& miss : run.Unanswered().All()) {
    summary.unanswered.push_back(miss.entry);
  }
  Section unusedReplies(name, u"reply was never used", u"replies were never used");
  Section unusedPnrs(name, u"PNR was never used", u"PNRs were never used");
  for (const Placed& reply : UnusedReplies(run)) {
    unusedReplies.Add(reply.title);
    summary.unused.push_back(reply.title);
  }
  for (const Placed& pnr : UnusedPnrs(run)) {
    unusedPnrs.Add(pnr.title);
    summary.unused.push_back(pnr.title);
  }
  Section cutShort(name, u"packed entry was not carried out to its end",
                   u"packed entries were not carried out to their ends");
  for (const CutShort& cut : run.CutsShort()) {
    cutShort.Add(OnOneLine(cut.entry) + std::u16string(kIndent) + u"ended with part " + DecimalText(cut.part) + u", " +
                 OnOneLine(cut.partText));
  }
  Section withoutPnr(name, u"retrieval found no PNR", u"retrievals found no PNR");
  AddMisses(withoutPnr, run.WithoutPnr(), u"read", NearestAnswers(AnsweringPnrs(scenario)));
  Section overruns(name, u"reply had no turn left", u"replies had no turn left");
  AddOverruns(overruns, run);
  Section warnings(name, u"warning", u"warnings");
  summary.warnings = UnreachableParts(scenario);
  summary.warnings.insert(summary.warnings.end(), scenario.warnings.begin(), scenario.warnings.end());
  summary.warnings.insert(summary.warnings.end(), furtherWarnings.begin(), furtherWarnings.end());
  for (const std::u16string& warning : summary.warnings) {
    warnings.Add(warning);
  }
  for (const Section* section :
       {&unanswered, &unusedReplies, &unusedPnrs, &cutShort, &withoutPnr, &overruns, &warnings}) {
    summary.text += section->Text();
  }
  return summary;
}

}  // namespace wendrill::simulator
