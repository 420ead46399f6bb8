// Which entries a reply answers: one exact entry, or all of a form.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace wendrill::simulator {

enum class MatchKind { Entry, Starts, Contains, Like };

// The key of a scenario for this kind: entry, starts, contains, like.
std::u16string_view KeyOf(MatchKind kind);

// Comparisons are exact, capitals and all.
struct EntryMatcher {
  MatchKind kind = MatchKind::Entry;
  std::u16string text;

  bool Matches(std::u16string_view entry) const;

  // Whether every entry that `other` matches is matched by this one too. May miss such a pair of patterns, but is never
  // wrong when it says yes.
  bool Covers(const EntryMatcher& other) const;

  friend bool operator==(const EntryMatcher&, const EntryMatcher&) = default;
};

// Whether a text has the form of a pattern: ? is one character, * any number of them. Takes O(text x pattern) steps.
bool IsLike(std::u16string_view text, std::u16string_view pattern);

}  // namespace wendrill::simulator
