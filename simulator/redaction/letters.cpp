#include "redaction/letters.h"

#include <algorithm>

#include "redaction/host_words.h"

namespace wendrill::redaction {
namespace {

bool IsBetween(char16_t character, char16_t first, char16_t last) {
  return first <= character && character <= last;
}

bool IsDigitAt(TextView text, std::size_t index) {
  return index < text.size() && IsDigit(text[index]);
}

}  // namespace

bool IsLetter(char16_t character) {
  if (character < 0x80) {
    return IsBetween(character, u'A', u'Z') || IsBetween(character, u'a', u'z');
  }
  const bool isSign = character < 0xC0 || character == 0xD7 || character == 0xF7 ||  // multiplication, division sign
                      IsBetween(character, 0x2000, 0x2BFF) ||  // punctuation, symbols, box drawing
                      IsBetween(character, 0x3000, 0x303F) ||  // East Asian punctuation
                      IsBetween(character, 0xE000, 0xF8FF) ||  // private use area
                      character >= 0xFE00;                     // presentation forms, byte order mark
  return !isSign;
}

char16_t Capital(char16_t character) {
  const auto before = [character](int by) { return static_cast<char16_t>(character - by); };
  if (IsBetween(character, u'a', u'z') || (IsBetween(character, 0xE0, 0xFE) && character != 0xF7)) {
    return before(0x20);
  }
  // In the ranges of the next two conditions, capitals and small letters alternate.
  if (IsBetween(character, 0x0100, 0x0137) || IsBetween(character, 0x014A, 0x0177)) {
    return before(character % 2);
  }
  if (IsBetween(character, 0x0139, 0x0148) || IsBetween(character, 0x0179, 0x017E)) {
    return before(1 - character % 2);
  }
  if (character == 0xFF) {
    return 0x0178;
  }
  if ((IsBetween(character, 0x03B1, 0x03C9) && character != 0x03C2) || IsBetween(character, 0x0430, 0x044F)) {
    return before(0x20);
  }
  return IsBetween(character, 0x0450, 0x045F) ? before(0x50) : character;
}

std::u16string Capitals(TextView text) {
  std::u16string capitals(text);
  std::ranges::transform(capitals, capitals.begin(), Capital);
  return capitals;
}

bool StartsWithAnyCase(TextView text, TextView head) {
  return text.size() >= head.size() &&
         std::ranges::equal(text.substr(0, head.size()), head, {}, [](char16_t each) { return Capital(each); });
}

std::optional<Word> LetterWords::Next() {
  while (position_ < text_.size() && !IsLetter(text_[position_])) {
    ++position_;
  }
  if (position_ == text_.size()) {
    return std::nullopt;
  }
  Word word{position_, position_};
  while (position_ < text_.size() && IsLetter(text_[position_])) {
    ++position_;
  }
  word.end = position_;
  const bool isInParentheses = word.begin > 0 && text_[word.begin - 1] == u'(';
  const bool isGlued = word.Size() > kInfant.size() && StartsWithAnyCase(word.In(text_), kInfant) &&
                       Capitals(word.In(text_)) != kInfantInFull;
  if (isInParentheses && isGlued) {
    word.begin += kInfant.size();
  }
  return word;
}

bool IsMonthOfDate(TextView text, Word word) {
  return word.begin > 0 && IsDigit(text[word.begin - 1]) && IsIn(kMonths, Capitals(word.In(text)));
}

bool IsMonthOfDateWithYear(TextView text, Word word) {
  return IsMonthOfDate(text, word) && IsDigitAt(text, word.end);
}

}  // namespace wendrill::redaction
