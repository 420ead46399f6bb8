// Conditions on entries: an entry equals a text, begins with a text, contains a text, or fits a pattern. The conditions
// determine which entries a reply answers.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace wendrill::simulator {

enum class MatchKind { Entry, Starts, Contains, Like };

// The key in [[reply]] that expresses a condition of this kind: entry, starts, contains or like.
std::u16string_view KeyOf(MatchKind kind);

// A condition on entries. `kind` determines what `text` is: the whole entry (Entry), its beginning (Starts), a text
// inside the entry (Contains), or a pattern that the whole entry fits (Like). All comparisons are case-sensitive.
struct EntryMatcher {
  MatchKind kind = MatchKind::Entry;
  std::u16string text;

  bool Matches(std::u16string_view entry) const;

  // Whether this matcher matches every entry that `other` matches. True is always right. False may be wrong when one of
  // the two matchers is of the kind Like: this matcher may match all these entries nevertheless.
  bool Covers(const EntryMatcher& other) const;

  friend bool operator==(const EntryMatcher&, const EntryMatcher&) = default;
};

// Whether the whole text matches a pattern in which ? is any one character, and * is any number of characters, also
// zero. Takes O(text x pattern) steps.
bool IsLike(std::u16string_view text, std::u16string_view pattern);

}  // namespace wendrill::simulator
