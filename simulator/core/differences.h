// Finds the nearest answers for the report. When nothing in the scenario answered an entry, or a retrieval found no
// PNR, NearestAnswers finds the replies and PNRs that are nearest to the entry, and describes how each of them differs
// from the entry.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/alignment.h"
#include "core/scenario_run.h"

namespace wendrill::simulator {

// The title with which a message identifies a reply or a PNR. The title begins with the line of the [[reply]] or
// [[pnr]] table in the scenario file:
//   line 4, entry = "AN15JUNPARLON"
// A ScenarioReply is a group of [[reply]] tables, each with one answer. `answer` is an answer of the group `reply`; the
// line is that of its table.
std::u16string TitleOf(const ScenarioReply& reply, const ScenarioAnswer& answer);
std::u16string TitleOf(const ScenarioPnr& pnr);

// The text in double quotes, with CR and LF written as \r and \n.
std::u16string InQuotes(std::u16string_view text);

// A candidate for the nearest answer to an entry. A candidate is one of these:
//   - a group of replies: `matcher` is the condition on the entries that the group answers;
//   - a PNR with one entry that retrieves the PNR: `matcher` matches exactly this entry.
// The candidate answers only in the session and the state of `where`.
struct Answering {
  std::u16string title;
  EntryMatcher matcher;
  Circumstances where;
};

// The candidates of a scenario. AnsweringReplies returns one candidate for each group of replies, with the title of the
// group's first reply. AnsweringPnrs returns one candidate for each entry that retrieves a PNR, so a PNR may give
// several candidates.
std::vector<Answering> AnsweringReplies(const Scenario& scenario);
std::vector<Answering> AnsweringPnrs(const Scenario& scenario);

// Finds the candidates nearest to an entry. Two limits keep the time for a report below a second:
//   - An entry of more than 300 characters is compared with a candidate only up to the first difference.
//   - After 50 million steps (Alignment::Steps), every further comparison also ends at the first difference.
class NearestAnswers {
 public:
  explicit NearestAnswers(std::vector<Answering> candidates);

  // One line for each of the nearest candidates, at most three, the nearest first; an empty vector when no candidate is
  // near. A line looks like this:
  //   line 4, entry = "AN15JUNPARLON"; column 13: "M" sent, "N" expected
  std::vector<std::u16string> LinesFor(const Miss& miss);

 private:
  struct Candidate {
    Answering answering;
    std::u16string pattern;   // the matcher as a pattern with the wildcards of alignment.h
    std::size_t fixed;        // the number of characters in `pattern` that are not wildcards
    EntryMatcher inCapitals;  // the matcher with its text in capitals
  };
  struct Found;

  // The distance between the entry and the candidate; nullopt when the candidate is not near. Two cases:
  //   - Normally the whole texts are compared. The candidate is near when the edit distance is at most NearLimit of the
  //     entry's length, and the texts have something in common.
  //   - For an entry of more than 300 characters, and after 50 million steps, the comparison ends at the first
  //     difference. The distance is the number of characters of the entry from that difference on. The candidate is
  //     near when at least three characters precede the difference.
  std::optional<std::size_t> DistanceOf(std::u16string_view entry, const Candidate& candidate);

  std::vector<Candidate> candidates_;
  Alignment alignment_;
};

}  // namespace wendrill::simulator
