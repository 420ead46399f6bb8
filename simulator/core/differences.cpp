#include "core/differences.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

#include "common/text.h"
#include "core/nearest.h"

namespace wendrill::simulator {
namespace {

constexpr std::size_t kLongestCompared = 300;
// When an entry is compared with a candidate only up to the first difference (NearestAnswers), the candidate is near if
// at least this many characters of the entry precede the difference.
constexpr std::size_t kLeastCommonHead = 3;
constexpr std::uint64_t kMostSteps = 50'000'000;

std::u16string LineText(std::int32_t line) {
  return u"line " + DecimalText(line) + u", ";
}

std::u16string Assignment(std::u16string_view key, std::u16string_view text) {
  return std::u16string(key) + u" = " + InQuotes(text);
}

std::u16string CircumstancesText(const Circumstances& where) {
  std::u16string text;
  if (where.session) {
    text += u", " + Assignment(u"session", *where.session);
  }
  if (where.when) {
    text += u", " + Assignment(u"when", *where.when);
  }
  return text;
}

std::u16string PatternOf(const EntryMatcher& matcher) {
  std::u16string pattern = matcher.text;
  if (matcher.kind == MatchKind::Like) {
    std::replace(pattern.begin(), pattern.end(), u'?', kAnyCharacter);
    std::replace(pattern.begin(), pattern.end(), u'*', kAnyCharacters);
  }
  if (matcher.kind == MatchKind::Contains) {
    pattern.insert(pattern.begin(), kAnyCharacters);
  }
  if (matcher.kind == MatchKind::Contains || matcher.kind == MatchKind::Starts) {
    pattern.push_back(kAnyCharacters);
  }
  return pattern;
}

bool IsFixed(char16_t character) {
  return character != kAnyCharacter && character != kAnyCharacters;
}

// Compares the entry with the pattern, but only up to the first kAnyCharacters of the pattern. Returns:
//   - the index of the first character of the entry that does not match;
//   - the entry's length when the entry ends before the pattern does;
//   - npos when there is no difference.
std::size_t FirstDifference(std::u16string_view entry, std::u16string_view pattern) {
  for (std::size_t i = 0; i <= entry.size(); ++i) {
    const bool ended = i == pattern.size();
    if (!ended && pattern[i] == kAnyCharacters) {
      return std::u16string_view::npos;
    }
    const bool fits = !ended && i < entry.size() && (pattern[i] == kAnyCharacter || pattern[i] == entry[i]);
    if (!fits) {
      return ended && i == entry.size() ? std::u16string_view::npos : i;
    }
  }
  return std::u16string_view::npos;
}

// The character at `index` in quotes, a surrogate pair as a whole; the word nothing, without quotes, when `index` is
// past the end.
std::u16string CharacterAt(std::u16string_view text, std::size_t index) {
  if (index >= text.size()) {
    return u"nothing";
  }
  const bool isPair = text[index] >= 0xD800 && text[index] <= 0xDBFF && index + 1 < text.size();
  return InQuotes(text.substr(index, isPair ? 2 : 1));
}

bool IsWithBlankAtEnd(std::u16string_view longer, std::u16string_view shorter) {
  return longer.size() == shorter.size() + 1 && longer.back() == kBlank && StartsWith(longer, shorter);
}

std::u16string WhereItDiffers(std::u16string_view entry, const Answering& candidate, std::u16string_view pattern) {
  const std::size_t index = FirstDifference(entry, pattern);
  if (index == std::u16string_view::npos) {
    return {};
  }
  std::u16string expected(candidate.matcher.text);
  return u"; column " + DecimalText(static_cast<std::int64_t>(index) + 1) + u": " + CharacterAt(entry, index) +
         u" sent, " + CharacterAt(expected, index) + u" expected";
}

// Why the candidate did not answer the entry, as the text that follows the candidate's title in the report. The text is
// that of the first case that applies:
//   - the entry matches, but the candidate answers only in another session;
//   - the entry matches in this session: the text names the scenario's state when the entry was first sent;
//   - the entry matches when upper and lower case are ignored;
//   - the candidate answers one exact entry, which differs from the sent entry only by a blank at the end;
//   - FirstDifference finds a difference: the text names its column and the two characters that differ.
// Empty when no case applies.
std::u16string WhatDiffers(const Miss& miss, const Answering& candidate, std::u16string_view pattern) {
  const std::u16string_view expected = candidate.matcher.text;
  if (candidate.matcher.Matches(miss.entry)) {
    if (candidate.where.session && *candidate.where.session != miss.session) {
      return u"; answers in session " + *candidate.where.session + u" alone";
    }
    return u"; the state was " + InQuotes(miss.state);
  }
  const EntryMatcher inCapitals{candidate.matcher.kind, UpperCase(expected)};
  if (inCapitals.Matches(UpperCase(miss.entry))) {
    return u"; differs in capitals only";
  }
  if (candidate.matcher.kind == MatchKind::Entry && IsWithBlankAtEnd(miss.entry, expected)) {
    return u"; a blank at the end was sent";
  }
  if (candidate.matcher.kind == MatchKind::Entry && IsWithBlankAtEnd(expected, miss.entry)) {
    return u"; a blank at the end was not sent";
  }
  return WhereItDiffers(miss.entry, candidate, pattern);
}

}  // namespace

std::u16string InQuotes(std::u16string_view text) {
  return u"\"" + Replaced(Replaced(text, u"\r", u"\\r"), u"\n", u"\\n") + u"\"";
}

std::u16string TitleOf(const ScenarioReply& reply, const ScenarioAnswer& answer) {
  return LineText(answer.line) + Assignment(KeyOf(reply.matcher.kind), reply.matcher.text) +
         CircumstancesText(reply.where);
}

std::u16string TitleOf(const ScenarioPnr& pnr) {
  const std::u16string name = !pnr.recordLocator.empty() ? Assignment(u"RecordLocator", pnr.recordLocator)
                              : !pnr.entries.empty()     ? Assignment(u"entries", pnr.entries.front())
                                                         : u"the PNR without a locator";
  return LineText(pnr.line) + name + CircumstancesText(pnr.where);
}

std::vector<Answering> AnsweringReplies(const Scenario& scenario) {
  std::vector<Answering> all;
  for (const ScenarioReply& reply : scenario.replies) {
    all.push_back({TitleOf(reply, *reply.answers.front()), reply.matcher, reply.where});
  }
  return all;
}

std::vector<Answering> AnsweringPnrs(const Scenario& scenario) {
  std::vector<Answering> all;
  for (const ScenarioPnr& pnr : scenario.pnrs) {
    for (const std::u16string& entry : pnr.RetrievingEntries()) {
      all.push_back({TitleOf(pnr), {MatchKind::Entry, entry}, pnr.where});
    }
  }
  return all;
}

NearestAnswers::NearestAnswers(std::vector<Answering> candidates) {
  for (Answering& each : candidates) {
    const std::u16string pattern = PatternOf(each.matcher);
    const auto fixed = static_cast<std::size_t>(std::count_if(pattern.begin(), pattern.end(), IsFixed));
    EntryMatcher inCapitals{each.matcher.kind, UpperCase(each.matcher.text)};
    candidates_.push_back({std::move(each), pattern, fixed, std::move(inCapitals)});
  }
}

struct NearestAnswers::Found {
  std::size_t distance;
  const Candidate* candidate;
};

std::optional<std::size_t> NearestAnswers::DistanceOf(std::u16string_view entry, const Candidate& candidate) {
  const EntryMatcher& matcher = candidate.answering.matcher;
  if (entry.size() > kLongestCompared || alignment_.Steps() > kMostSteps) {
    const std::size_t common = std::min(FirstDifference(entry, candidate.pattern), entry.size());
    return common < kLeastCommonHead ? std::nullopt : std::optional(entry.size() - common);
  }
  const std::size_t limit = NearLimit(entry.size());
  if (candidate.fixed > entry.size() + limit) {
    return std::nullopt;
  }
  const std::size_t distance = matcher.kind == MatchKind::Entry
                                   ? alignment_.Distance(matcher.text, entry, limit)
                                   : alignment_.DistanceFrom(candidate.pattern, entry, limit);
  const bool hasSomethingInCommon =
      distance < (matcher.kind == MatchKind::Entry ? std::max(entry.size(), candidate.fixed) : candidate.fixed);
  return distance <= limit && hasSomethingInCommon ? std::optional(distance) : std::nullopt;
}

std::vector<std::u16string> NearestAnswers::LinesFor(const Miss& miss) {
  // A candidate that matches the entry when case is ignored has distance 0. This includes a candidate that matches the
  // entry exactly, but did not answer because of its session or state.
  const std::u16string inCapitals = UpperCase(miss.entry);
  std::vector<Found> found;
  for (const Candidate& candidate : candidates_) {
    if (candidate.inCapitals.Matches(inCapitals)) {
      found.push_back({0, &candidate});
    } else if (const auto distance = DistanceOf(miss.entry, candidate)) {
      found.push_back({*distance, &candidate});
    }
  }
  std::stable_sort(found.begin(), found.end(),
                   [](const Found& left, const Found& right) { return left.distance < right.distance; });
  found.resize(std::min(found.size(), kMostNearest));
  std::vector<std::u16string> lines;
  for (const Found& each : found) {
    const Answering& answering = each.candidate->answering;
    lines.push_back(answering.title + WhatDiffers(miss, answering, each.candidate->pattern));
  }
  return lines;
}

}  // namespace wendrill::simulator
