#include "support/hidden_again.h"

namespace wendrill::testing {
namespace {

using redaction::Redactor;
using Texts = std::vector<std::u16string>;

// Hides the texts in order. Before it hides each fifth text, beginning with the first, the redactor learns the names in
// the text that follows.
Texts HiddenInOrder(const Texts& texts, Redactor& redactor) {
  constexpr std::size_t kLearntAhead = 5;
  Texts hidden;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (i % kLearntAhead == 0 && i + 1 < texts.size()) {
      redactor.Learn(texts[i + 1]);
    }
    hidden.push_back(redactor.Hide(texts[i]));
  }
  return hidden;
}

// The first token that occurs in the text as a word; empty when the text has none. Words are searched within passages,
// because the keyword of an entry may be followed by a word without a blank between them.
std::u16string TokenIn(const std::u16string& text, const std::set<std::u16string>& tokens) {
  for (const redaction::Passage& passage : redaction::PassagesOf(text)) {
    redaction::LetterWords words(passage.In(text));
    for (auto word = words.Next(); word; word = words.Next()) {
      if (const auto found = tokens.find(redaction::Capitals(word->In(passage.In(text)))); found != tokens.end()) {
        return *found;
      }
    }
  }
  return {};
}

}  // namespace

std::string WrongInHiding(const Texts& texts, const std::set<redaction::Kind>& kept) {
  Redactor first(kept);
  const Texts hidden = HiddenInOrder(texts, first);
  Redactor second(kept);
  const Texts again = HiddenInOrder(hidden, second);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (hidden[i].size() != texts[i].size()) {
      return "another length: " + ToUtf8(hidden[i]) + "\nof " + ToUtf8(texts[i]);
    }
    if (again[i] != hidden[i]) {
      return "hidden again:  " + ToUtf8(again[i]) + "\nhidden: " + ToUtf8(hidden[i]) + "\nof " + ToUtf8(texts[i]);
    }
  }
  if (!second.Tokens().empty()) {
    return "hiding again hides " + ToUtf8(*second.Tokens().begin());
  }
  for (const std::u16string& text : texts) {
    const std::u16string last = first.Hide(text);
    if (const std::u16string token = TokenIn(last, first.Tokens()); !token.empty()) {
      return ToUtf8(token) + " is in " + ToUtf8(last);
    }
  }
  return {};
}

}  // namespace wendrill::testing
