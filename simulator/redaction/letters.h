// Letters, and the words that they form. Displays contain only the capitals A to Z; people also type small letters and
// letters with accents.
#pragma once

#include <cstddef>
#include <optional>

#include "common/text.h"

namespace wendrill::redaction {

// The minimum number of letters of a word that is hidden as a name. Words of one or two letters, such as initials, "MR"
// and airline codes, are never hidden as names.
inline constexpr std::size_t kLeastLetters = 3;

// Whether the character is a letter of any alphabet. Signs, punctuation, private-use characters and presentation forms
// (U+FE00 and above) are not letters. Each unit of a surrogate pair counts as a letter.
bool IsLetter(char16_t character);

// Capital returns the capital of a small Latin letter up to U+017E, of a small Greek letter without an accent, and of a
// small Cyrillic letter up to U+045F. The capital of the dotless i (U+0131) is U+0130, the capital I with a dot.
// Capital returns any other character unchanged, for example the Greek final sigma and letters without a capital of one
// character, such as the German sharp s. Capitals returns a copy of the text in which Capital is applied to each
// character.
char16_t Capital(char16_t character);
std::u16string Capitals(TextView text);

// Whether the text begins with `head` in capitals, small letters or a mixture. REQUIRES: `head` is in capitals.
bool StartsWithAnyCase(TextView text, TextView head);

// The place of a word in a text. `begin` is the index of its first character, counted from 0, and `end` is the index
// after its last character.
struct Word {
  std::size_t begin;
  std::size_t end;

  std::size_t Size() const { return end - begin; }
  TextView In(TextView text) const { return text.substr(begin, end - begin); }
};

// Enumerates the words of a text in order. A word is a run of letters. When INF, the passenger type of an infant, and a
// surname form one word directly after "(", Next returns only the surname: the words of "(INFDOE/BABY)" are "DOE" and
// "BABY". The word INFANT is returned whole.
class LetterWords {
 public:
  explicit LetterWords(TextView text) : text_(text) {}

  // The next word; nullopt after the last word.
  std::optional<Word> Next();

 private:
  TextView text_;
  std::size_t position_ = 0;
};

// Whether the word is a month and a digit is directly before the word, as in the dates 12JAN and 12JAN01.
bool IsMonthOfDate(TextView text, Word word);

// Whether the word is a month and digits are directly before and after the word, as in the date 12JAN01. False for
// "1JAN/ANN", in which JAN is the surname of the first passenger.
bool IsMonthOfDateWithYear(TextView text, Word word);

}  // namespace wendrill::redaction
