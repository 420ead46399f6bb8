#include "core/entry_matcher.h"

#include "common/text.h"

namespace wendrill::simulator {
namespace {

constexpr char16_t kAnyOne = u'?';
constexpr char16_t kAnyRun = u'*';
constexpr std::u16string_view kWildcards = u"?*";

// The fixed prefix of all entries that the matcher matches: the text of `entry` and `starts`, and the part of a `like`
// pattern before its first wildcard (the whole pattern when it has no wildcard). Empty for `contains`.
std::u16string_view FixedHead(const EntryMatcher& matcher) {
  const std::u16string_view text = matcher.text;
  switch (matcher.kind) {
    case MatchKind::Entry:
    case MatchKind::Starts:
      return text;
    case MatchKind::Contains:
      return {};
    case MatchKind::Like:
      break;
  }
  return text.substr(0, text.find_first_of(kWildcards));
}

// Whether every entry that the matcher matches contains `part`. For a `like` pattern, this is true when `part` is
// empty, or when a section of the pattern that has no wildcard contains `part`.
bool AlwaysHolds(const EntryMatcher& matcher, std::u16string_view part) {
  if (matcher.kind != MatchKind::Like) {
    return Contains(matcher.text, part);
  }
  for (std::u16string_view rest = matcher.text; !rest.empty();) {
    const std::size_t end = rest.find_first_of(kWildcards);
    if (Contains(rest.substr(0, end), part)) {
      return true;
    }
    rest.remove_prefix(end == std::u16string_view::npos ? rest.size() : end + 1);
  }
  return part.empty();
}

}  // namespace

std::u16string_view KeyOf(MatchKind kind) {
  switch (kind) {
    case MatchKind::Starts:
      return u"starts";
    case MatchKind::Contains:
      return u"contains";
    case MatchKind::Like:
      return u"like";
    case MatchKind::Entry:
      break;
  }
  return u"entry";
}

bool EntryMatcher::Matches(std::u16string_view entry) const {
  switch (kind) {
    case MatchKind::Starts:
      return StartsWith(entry, text);
    case MatchKind::Contains:
      return Contains(entry, text);
    case MatchKind::Like:
      return IsLike(entry, text);
    case MatchKind::Entry:
      break;
  }
  return entry == text;
}

bool EntryMatcher::Covers(const EntryMatcher& other) const {
  if (*this == other || (other.kind == MatchKind::Entry && Matches(other.text))) {
    return true;
  }
  switch (kind) {
    case MatchKind::Starts:
      return StartsWith(FixedHead(other), text);
    case MatchKind::Contains:
      return AlwaysHolds(other, text);
    case MatchKind::Like:
      return text.find_first_not_of(kAnyRun) == std::u16string::npos && !text.empty();
    case MatchKind::Entry:
      break;
  }
  return false;
}

// Lets each * match as few characters as possible. Where the text differs from the pattern, the search goes back to the
// last * and lets this * match one more character.
bool IsLike(std::u16string_view text, std::u16string_view pattern) {
  constexpr std::size_t kNoRun = std::u16string_view::npos;
  std::size_t inText = 0;
  std::size_t inPattern = 0;
  std::size_t run = kNoRun;  // index in the pattern of the last * so far; kNoRun before the first *
  std::size_t runEnd = 0;    // index in the text of the first character after the part that this * matches
  while (inText < text.size()) {
    if (inPattern < pattern.size() && pattern[inPattern] == kAnyRun) {
      run = inPattern++;
      runEnd = inText;
    } else if (inPattern < pattern.size() && (pattern[inPattern] == kAnyOne || pattern[inPattern] == text[inText])) {
      ++inText;
      ++inPattern;
    } else if (run != kNoRun) {
      inPattern = run + 1;
      inText = ++runEnd;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of(kAnyRun, inPattern) == std::u16string_view::npos;
}

}  // namespace wendrill::simulator
