// Which replies and PNRs are nearest to an entry that nothing answered, and where they differ from it.
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

// How messages name a reply and a PNR: line 4, entry = "AN15JUNPARLON"
std::u16string TitleOf(const ScenarioReply& reply, const ScenarioAnswer& answer);
std::u16string TitleOf(const ScenarioPnr& pnr);

// A string in double quotes, with line breaks written as \r and \n.
std::u16string InQuotes(std::u16string_view text);

// Something that answers the entries of one form.
struct Answering {
  std::u16string title;
  EntryMatcher matcher;
  Circumstances where;
};

std::vector<Answering> AnsweringReplies(const Scenario& scenario);
std::vector<Answering> AnsweringPnrs(const Scenario& scenario);

// Finds the candidates nearest to an entry. Entries of more than 300 characters are compared by their beginnings alone,
// and so are all entries once a number of steps is reached: a report takes a second at most, however long its lists.
class NearestAnswers {
 public:
  explicit NearestAnswers(std::vector<Answering> candidates);

  // A line for each of at most three candidates, the nearest first:
  //   line 4, entry = "AN15JUNPARLON"; column 13: "M" sent, "N" expected
  std::vector<std::u16string> LinesFor(const Miss& miss);

 private:
  struct Candidate {
    Answering answering;
    std::u16string pattern;   // the matcher's form, for Alignment
    std::size_t fixed;        // how many characters the form fixes
    EntryMatcher inCapitals;  // the matcher with its text in capitals
  };
  struct Found;

  // How far the entry is from the candidate; nullopt when it is not near.
  std::optional<std::size_t> DistanceOf(std::u16string_view entry, const Candidate& candidate);

  std::vector<Candidate> candidates_;
  Alignment alignment_;
};

}  // namespace wendrill::simulator
