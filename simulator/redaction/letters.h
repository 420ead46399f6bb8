// Letters, and the words that they form. Displays contain only the capitals A to Z; people also type small letters and
// letters with accents.
#pragma once

#include <cstddef>
#include <optional>

#include "common/text.h"

namespace wendrill::redaction {

// The minimum length of a word that is hidden as a name. Shorter words, such as initials, "MR" and airlines, are never
// hidden as names.
inline constexpr std::size_t kLeastLetters = 3;

// Whether the character is a letter of any alphabet. Each unit of a surrogate pair counts as a letter.
bool IsLetter(char16_t character);

// The capital of a Latin, Greek or Cyrillic letter; any other character unchanged. Capitals returns the text in
// capitals, in the same length.
char16_t Capital(char16_t character);
std::u16string Capitals(TextView text);

// Whether the text begins with `head`; the case of the text is ignored. REQUIRES: `head` is in capitals.
bool StartsWithAnyCase(TextView text, TextView head);

// The place of a word in a text: the index of its first character, counted from 0, and the index after its last
// character.
struct Word {
  std::size_t begin;
  std::size_t end;

  std::size_t Size() const { return end - begin; }
  TextView In(TextView text) const { return text.substr(begin, end - begin); }
};

// Enumerates the words of a text in order. A word is a run of letters. In parentheses, the type INF of an infant may be
// directly before the surname; it is then left out: the words of "(INFDOE/BABY)" are "DOE" and "BABY".
class LetterWords {
 public:
  explicit LetterWords(TextView text) : text_(text) {}

  // The next word; nullopt after the last one.
  std::optional<Word> Next();

 private:
  TextView text_;
  std::size_t position_ = 0;
};

// Whether the word is the month of a date such as 12JAN or 12JAN01.
bool IsMonthOfDate(TextView text, Word word);

// Whether the word is the month of a date with a year, such as a date of birth: 12JAN01. False for "1JAN/ANN", in which
// JAN is the surname of the first passenger.
bool IsMonthOfDateWithYear(TextView text, Word word);

}  // namespace wendrill::redaction
