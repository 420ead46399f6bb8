#include "redaction/redactor.h"

#include <algorithm>
#include <utility>

#include "redaction/digits.h"
#include "redaction/host_words.h"
#include "redaction/names.h"

namespace wendrill::redaction {
namespace {

// The minimum number of digits of a contact number that is hidden everywhere in the texts. The digits of a shorter
// number are hidden only in the contact itself.
constexpr std::size_t kLeastContactDigits = 7;

struct KindName {
  TextView name;
  Kind kind;
};
constexpr KindName kKindNames[] = {
    {u"names", Kind::Names}, {u"cards", Kind::Cards}, {u"contacts", Kind::Contacts}, {u"remarks", Kind::Remarks}};

bool IsContact(const Passage& passage) {
  return passage.kind == PassageKind::Contact || passage.kind == PassageKind::Document;
}

bool IsFreeText(const Passage& passage) {
  return passage.kind == PassageKind::FreeText;
}

bool IsNoBlank(char16_t character) {
  return character != kBlank;
}

bool IsZeros(TextView digits) {
  return digits.find_first_not_of(u'0') == TextView::npos;
}

// In each passage of `text` for which `isMeant` returns true, replaces by `with` every character for which `isReplaced`
// returns true. passages.h explains what a passage is.
void Fill(const std::vector<Passage>& passages, bool (*isMeant)(const Passage&), bool (*isReplaced)(char16_t),
          char16_t with, std::u16string& text) {
  for (const Passage& passage : passages) {
    const auto begin = text.begin() + static_cast<std::ptrdiff_t>(passage.begin);
    if (isMeant(passage)) {
      std::replace_if(begin, begin + static_cast<std::ptrdiff_t>(passage.end - passage.begin), isReplaced, with);
    }
  }
}

// Replaces the word at index `begin` (counted from 0) of `text` by the pseudonym, which has the length of the word and
// is in capitals. Where the word has a small letter, the letter of the pseudonym is written as a small letter.
void Replace(TextView pseudonym, std::size_t begin, std::u16string& text) {
  for (std::size_t i = 0; i < pseudonym.size(); ++i) {
    char16_t& letter = text[begin + i];
    const bool isSmall = Capital(letter) != letter;
    letter = isSmall ? static_cast<char16_t>(pseudonym[i] - u'A' + u'a') : pseudonym[i];
  }
}

}  // namespace

Redactor::Redactor(std::set<Kind> kept) : kept_(std::move(kept)) {}

void Redactor::Learn(std::u16string_view text) {
  LearnFrom(text, PassagesOf(text));
}

std::u16string Redactor::Hide(std::u16string_view text) {
  const std::vector<Passage> passages = PassagesOf(text);
  LearnFrom(text, passages);
  std::u16string hidden(text);
  if (IsHidden(Kind::Remarks)) {
    Fill(passages, IsFreeText, IsNoBlank, u'X', hidden);
  }
  std::u16string others = hidden;
  if (IsHidden(Kind::Contacts)) {
    Fill(passages, IsContact, IsDigit, u'0', hidden);
    Fill(passages, IsContact, IsDigit, u'X', others);
  }
  HideNumbers(others, LayoutOf(text), hidden);
  HideNames(passages, hidden);
  return hidden;
}

bool Redactor::Hides(std::u16string_view text) {
  return Hide(text) != text;
}

void Redactor::LearnFrom(TextView text, const std::vector<Passage>& passages) {
  if (IsHidden(Kind::Contacts)) {
    for (const Passage& passage : passages) {
      if (IsContact(passage)) {
        LearnNumbers(passage.In(text));
      }
    }
  }
  if (!IsHidden(Kind::Names)) {
    return;
  }
  ForEachNameIn(text, passages, [this](TextView name) {
    const std::u16string capitals = Capitals(name);
    if (pseudonyms_.Find(capitals) == nullptr) {
      tokens_.erase(pseudonyms_.Of(capitals));
      if (!pseudonyms_.IsPseudonym(capitals) && !hostWords_.contains(capitals)) {
        tokens_.insert(capitals);
      }
    }
  });
}

void Redactor::LearnNumbers(TextView contact) {
  DigitRuns runs(contact, Layout::OneLine);
  for (auto run = runs.Next(); run; run = runs.Next()) {
    const std::u16string digits = run->In(contact);
    const auto add = [this](TextView number) {
      if (number.size() >= kLeastContactDigits && !IsZeros(number)) {
        contactNumbers_.emplace(number);
      }
    };
    add(digits);
    std::size_t first = 0;
    for (const std::size_t count : run->groups) {
      add(TextView(digits).substr(first, count));
      first += count;
    }
  }
}

// Hides numbers outside the contacts of `text`: repetitions of a learnt contact number, and card numbers.
//
// The caller has already hidden the contacts themselves: their digits are 0 in `text` and X in `written`, which is
// otherwise equal to `text`. Numbers are searched for in `written`, so that a run of digits ends where a contact
// begins, and are replaced at the same places of `text`. For each run of digits in `written`:
//   - If the run is a learnt contact number, all its digits become 0.
//   - Otherwise, if card numbers are hidden, CardParts divides the run. Each card number becomes a test number, and is
//     added to tokens_ as it was written. The digits of a part that is too short for a card number become 0. A part
//     that consists of zeros only is not changed.
void Redactor::HideNumbers(TextView written, Layout layout, std::u16string& text) {
  DigitRuns runs(written, layout);
  for (auto run = runs.Next(); run; run = runs.Next()) {
    const std::u16string digits = run->In(written);
    const auto write = [&](std::size_t first, TextView number) {
      for (std::size_t i = 0; i < number.size(); ++i) {
        text[run->places[first + i]] = number[i];
      }
    };
    if (contactNumbers_.contains(digits)) {
      write(0, std::u16string(digits.size(), u'0'));
      continue;
    }
    if (!IsHidden(Kind::Cards)) {
      continue;
    }
    for (const DigitPart& part : CardParts(run->groups)) {
      const std::u16string number = digits.substr(part.first, part.count);
      if (IsZeros(number)) {
        continue;
      }
      const std::u16string hidden = part.isCard ? testNumbers_.Of(number) : std::u16string(part.count, u'0');
      write(part.first, hidden);
      if (part.isCard && hidden != number) {
        const std::size_t begin = run->places[part.first];
        tokens_.emplace(written.substr(begin, run->places[part.first + part.count - 1] + 1 - begin));
      }
    }
  }
}

void Redactor::HideNames(const std::vector<Passage>& passages, std::u16string& text) {
  if (!IsHidden(Kind::Names)) {
    return;
  }
  for (const Passage& passage : passages) {
    HideNamesIn(passage, text);
  }
}

void Redactor::HideNamesIn(const Passage& passage, std::u16string& text) {
  const bool isOfNames = passage.kind == PassageKind::Names || passage.kind == PassageKind::Document;
  const std::u16string written(passage.In(text));
  LetterWords words(written);
  for (auto word = words.Next(); word; word = words.Next()) {
    if (word->Size() < kLeastLetters) {
      continue;
    }
    const bool isMonth = isOfNames ? IsMonthOfDateWithYear(written, *word) : IsMonthOfDate(written, *word);
    const std::u16string capitals = Capitals(word->In(written));
    if (isMonth || passage.kind == PassageKind::Host) {
      KeepForHost(capitals);
    } else if (const std::u16string* pseudonym = pseudonyms_.Find(capitals)) {
      Replace(*pseudonym, passage.begin + word->begin, text);
    }
  }
}

void Redactor::KeepForHost(const std::u16string& word) {
  hostWords_.insert(word);
  tokens_.erase(word);
}

std::optional<std::set<Kind>> KindsIn(std::u16string_view list, std::u16string& wrong) {
  std::set<Kind> kinds;
  while (!list.empty()) {
    const std::size_t end = list.find(u',');
    const TextView word = Trimmed(list.substr(0, end));
    const auto* found = std::ranges::find_if(
        kKindNames, [word](const KindName& each) { return CompareWithoutCase(each.name, word) == 0; });
    if (found == std::end(kKindNames)) {
      wrong = word;
      return std::nullopt;
    }
    kinds.insert(found->kind);
    list = end == TextView::npos ? TextView() : list.substr(end + 1);
  }
  return kinds;
}

}  // namespace wendrill::redaction
