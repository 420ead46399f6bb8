// Pseudonyms of names: one for each name, of the same length.
//
// A pseudonym begins with Q or X, and its other letters are consonants other than Y: QBBBB, QBBBC, ... For each length,
// names get these words in the order in which the names first appear. No person's name has the form of a pseudonym. So
// a name of this form comes from a text that was hidden before, and becomes its own pseudonym unless that word is in
// use already. This makes hiding idempotent, in whatever order the texts are hidden.
//
// 800 words of three letters have the form of a pseudonym, and 16,000 words of four letters. When these are used up,
// any other word that is not a word of the host becomes a pseudonym. When those are used up too, several names share a
// pseudonym. So many names of one length exist only if some of them are in other alphabets than the Latin one.
#pragma once

#include <map>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "common/text.h"

namespace wendrill::redaction {

// A hash function with which tables of strings can be searched for a string view.
struct TextHash {
  using is_transparent = void;
  std::size_t operator()(TextView text) const { return std::hash<TextView>()(text); }
};

using TextSet = std::unordered_set<std::u16string, TextHash, std::equal_to<>>;
using TextMap = std::unordered_map<std::u16string, std::u16string, TextHash, std::equal_to<>>;

class Pseudonyms {
 public:
  // The pseudonym of a name; the first call for a name chooses it. REQUIRES: `name` is in capitals.
  const std::u16string& Of(TextView name);

  // The pseudonym of a name; null when Of has not chosen one.
  const std::u16string* Find(TextView name) const;

  // Whether the word is the pseudonym of a name.
  bool IsPseudonym(TextView word) const { return used_.contains(word); }

 private:
  // Where the search for the next free word of one length continues.
  struct Position {
    std::u16string word;
    bool isRecognisable = true;  // whether `word` has the form of a pseudonym
    bool isAtEnd = false;        // whether all words of the length are used up
  };

  std::u16string NextFree(std::size_t length);

  TextMap pseudonyms_;
  TextSet used_;
  std::map<std::size_t, Position> positions_;  // by the length of the word
};

// Whether a word has the form of a pseudonym: Q or X, then only consonants other than Y.
bool HasFormOfPseudonym(TextView word);

}  // namespace wendrill::redaction
