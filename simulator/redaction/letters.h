// Letters and the words that they form. Displays have capitals A to Z alone; people type small letters and accents too.
#pragma once

#include <cstddef>
#include <optional>

#include "common/text.h"

namespace wendrill::redaction {

// Shorter words are never hidden: initials, "MR", airlines.
inline constexpr std::size_t kLeastLetters = 3;

// A letter of any alphabet. Each unit of a surrogate pair counts as a letter.
bool IsLetter(char16_t character);

// The capital of a Latin, Greek or Cyrillic letter; any other character unchanged. One character stays one.
char16_t Capital(char16_t character);
std::u16string Capitals(TextView text);

// Whether the text begins with `head`, which is in capitals, whatever the text's own.
bool StartsWithAnyCase(TextView text, TextView head);

// The place of a word in a text: indexes from 0.
struct Word {
  std::size_t begin;
  std::size_t end;

  std::size_t Size() const { return end - begin; }
  TextView In(TextView text) const { return text.substr(begin, end - begin); }
};

// The words of a text in order: runs of letters. An infant's surname may follow its type without a blank: of
// "(INFDOE/BABY)" the words are "DOE" and "BABY".
class LetterWords {
 public:
  explicit LetterWords(TextView text) : text_(text) {}

  // The next word; nothing past the last.
  std::optional<Word> Next();

 private:
  TextView text_;
  std::size_t position_ = 0;
};

// The word is the month of a date such as 12JAN or 12JAN01.
bool IsMonthOfDate(TextView text, Word word);

// The word is the month of a date with a year: 12JAN01, a date of birth. "1JAN/ANN" is the name of a first passenger.
bool IsMonthOfDateWithYear(TextView text, Word word);

}  // namespace wendrill::redaction
