// For an entry that nothing in the scenario answered: the replies and PNRs nearest to the entry, and how each of them
// differs from it.
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

// The name of a reply or a PNR in messages, such as: line 4, entry = "AN15JUNPARLON"
std::u16string TitleOf(const ScenarioReply& reply, const ScenarioAnswer& answer);
std::u16string TitleOf(const ScenarioPnr& pnr);

// The text in double quotes, with line breaks written as \r and \n.
std::u16string InQuotes(std::u16string_view text);

// A reply or a PNR: the entries that it answers, and the session and state in which it answers.
struct Answering {
  std::u16string title;
  EntryMatcher matcher;
  Circumstances where;
};

std::vector<Answering> AnsweringReplies(const Scenario& scenario);
std::vector<Answering> AnsweringPnrs(const Scenario& scenario);

// Finds the candidates nearest to an entry. Two limits keep the time for a report below a second, however long its
// lists are. An entry of more than 300 characters is compared by its beginning alone. After 50 million steps, every
// further entry is compared by its beginning alone.
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
    std::u16string pattern;   // what the matcher matches, with the wildcards of Alignment
    std::size_t fixed;        // the number of characters in `pattern` that are not wildcards
    EntryMatcher inCapitals;  // the matcher with its text in capitals
  };
  struct Found;

  // The distance between the entry and the candidate; nullopt when the candidate is not near.
  std::optional<std::size_t> DistanceOf(std::u16string_view entry, const Candidate& candidate);

  std::vector<Candidate> candidates_;
  Alignment alignment_;
};

}  // namespace wendrill::simulator
