// Pseudonyms of names: one for each name, of the same length.
//
// A pseudonym begins with Q or X, and its other letters are consonants other than Y: QBBBB, QBBBC, ... The first name
// of five letters that appears gets QBBBB, the next one QBBBC, and so on in alphabetical order. Words that are already
// pseudonyms are skipped.
//
// A name that already has the form of a pseudonym comes from a text that was hidden before, because no person's name
// has this form. Such a name becomes its own pseudonym, unless the word is already the pseudonym of another name. So
// hiding is idempotent, in whatever order the texts are hidden.
//
// There are 800 words of three letters with the form of a pseudonym, and 16,000 of four letters. When the words of one
// length with this form are used up, the pseudonyms are other words of that length from the letters A to Z that are not
// words of the host. When these words are used up too, all further names of that length share one pseudonym. In
// practice, that needs names in letters other than A to Z.
#pragma once

#include <map>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "common/text.h"

namespace wendrill::redaction {

// A transparent hash function: a table of std::u16string can be searched with a TextView.
struct TextHash {
  using is_transparent = void;
  std::size_t operator()(TextView text) const { return std::hash<TextView>()(text); }
};

using TextSet = std::unordered_set<std::u16string, TextHash, std::equal_to<>>;
using TextMap = std::unordered_map<std::u16string, std::u16string, TextHash, std::equal_to<>>;

class Pseudonyms {
 public:
  // The pseudonym of a name. The first call for a name chooses the pseudonym; later calls return this pseudonym.
  // REQUIRES: `name` is in capitals.
  const std::u16string& Of(TextView name);

  // The pseudonym of a name; null when Of has not been called for the name.
  const std::u16string* Find(TextView name) const;

  // Whether Of has chosen the word as the pseudonym of a name.
  bool IsPseudonym(TextView word) const { return used_.contains(word); }

 private:
  // The position of the search for unused words of one length.
  struct Position {
    std::u16string word;         // the word that NextFree tries next
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
