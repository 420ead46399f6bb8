#include "redaction/pseudonyms.h"

#include <algorithm>

#include "redaction/host_words.h"

namespace wendrill::redaction {
namespace {

constexpr TextView kFirstLetters = u"QX";
constexpr TextView kConsonants = u"BCDFGHJKLMNPQRSTVWXZ";
constexpr TextView kAllLetters = u"ABCDEFGHIJKLMNOPQRSTUVWXYZ";

// Counts a word up, as if the word were a number with letters as digits: changes the word to the next word and returns
// true, or changes the last word to the first word and returns false. The first letter of a word is one of
// `firstLetters`, and every other letter is one of `letters`.
bool CountUp(std::u16string& word, TextView firstLetters, TextView letters) {
  for (std::size_t at = word.size(); at-- > 0;) {
    const TextView alphabet = at == 0 ? firstLetters : letters;
    const std::size_t next = alphabet.find(word[at]) + 1;
    if (next < alphabet.size()) {
      word[at] = alphabet[next];
      return true;
    }
    word[at] = alphabet.front();
  }
  return false;
}

std::u16string FirstWord(std::size_t length, TextView firstLetters, TextView letters) {
  std::u16string word(length, letters.front());
  word.front() = firstLetters.front();
  return word;
}

}  // namespace

bool HasFormOfPseudonym(TextView word) {
  return !word.empty() && Contains(kFirstLetters, word.substr(0, 1)) &&
         word.find_first_not_of(kConsonants) == TextView::npos;
}

const std::u16string& Pseudonyms::Of(TextView name) {
  if (const std::u16string* known = Find(name)) {
    return *known;
  }
  const bool keepsForm = HasFormOfPseudonym(name) && !used_.contains(name);
  const auto chosen = pseudonyms_.emplace(name, keepsForm ? std::u16string(name) : NextFree(name.size())).first;
  used_.insert(chosen->second);
  return chosen->second;
}

const std::u16string* Pseudonyms::Find(TextView name) const {
  const auto found = pseudonyms_.find(name);
  return found == pseudonyms_.end() ? nullptr : &found->second;
}

std::u16string Pseudonyms::NextFree(std::size_t length) {
  const auto [place, isNew] = positions_.try_emplace(length);
  Position& position = place->second;
  if (isNew) {
    position.word = FirstWord(length, kFirstLetters, kConsonants);
  }
  while (!position.isAtEnd && (used_.contains(position.word) || IsHostWord(position.word))) {
    if (position.isRecognisable) {
      if (!CountUp(position.word, kFirstLetters, kConsonants)) {
        position = {.word = FirstWord(length, kAllLetters, kAllLetters), .isRecognisable = false};
      }
    } else {
      position.isAtEnd = !CountUp(position.word, kAllLetters, kAllLetters);
    }
  }
  return position.isAtEnd ? FirstWord(length, kFirstLetters, kConsonants) : position.word;
}

}  // namespace wendrill::redaction
