// Pseudonyms of names: one for each name, of the same length.
//
// A pseudonym begins with Q or X and has no vowel: QBBBB, QBBBC, ... in the order in which names of that length first
// appear. A name that has this form keeps it where it is free, so that a text that is hidden again stays the same,
// whatever the order. No person's name has it: every word with Q or X in front of consonants alone is a pseudonym.
//
// Of three letters 800 words have the form, of four 16,000. After those any word that is no word of the host serves;
// and when even these are used up, which takes alphabets beside the Latin, names share one.
#pragma once

#include <map>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "common/text.h"

namespace wendrill::redaction {

// Lets hash tables of strings be asked for views.
struct TextHash {
  using is_transparent = void;
  std::size_t operator()(TextView text) const { return std::hash<TextView>()(text); }
};

using TextSet = std::unordered_set<std::u16string, TextHash, std::equal_to<>>;
using TextMap = std::unordered_map<std::u16string, std::u16string, TextHash, std::equal_to<>>;

class Pseudonyms {
 public:
  // The pseudonym of a name in capitals; the first call for a name chooses it.
  const std::u16string& Of(TextView name);

  // Null for a name without a pseudonym.
  const std::u16string* Find(TextView name) const;

  // Whether the word is the pseudonym of a name.
  bool IsPseudonym(TextView word) const { return used_.contains(word); }

 private:
  // Where the search for the next free word of a length goes on.
  struct Position {
    std::u16string word;
    bool isRecognisable = true;
    bool isAtEnd = false;
  };

  std::u16string NextFree(std::size_t length);

  TextMap pseudonyms_;
  TextSet used_;
  std::map<std::size_t, Position> positions_;  // by length
};

// Whether a word has the form of a pseudonym.
bool HasFormOfPseudonym(TextView word);

}  // namespace wendrill::redaction
