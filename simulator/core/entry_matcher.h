// Matches entries against what a reply or a PNR answers: one exact entry, or all entries that fit a pattern.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace wendrill::simulator {

enum class MatchKind { Entry, Starts, Contains, Like };

// The key in [[reply]] that expresses this kind of match: entry, starts, contains or like.
std::u16string_view KeyOf(MatchKind kind);

// A condition on entries: `text` is the whole entry, the prefix, the contained text or the pattern, as `kind`
// determines. All comparisons are case-sensitive.
struct EntryMatcher {
  MatchKind kind = MatchKind::Entry;
  std::u16string text;

  bool Matches(std::u16string_view entry) const;

  // Whether this matcher matches every entry that `other` matches. The result true is always right. The result false
  // may be wrong when one of the two matchers has a `like` pattern.
  bool Covers(const EntryMatcher& other) const;

  friend bool operator==(const EntryMatcher&, const EntryMatcher&) = default;
};

// Whether the whole text matches a pattern in which ? is any one character, and * is any number of characters, also
// none. Takes O(text x pattern) steps.
bool IsLike(std::u16string_view text, std::u16string_view pattern);

}  // namespace wendrill::simulator
