// Hides personal data in what is written about a run: traces and recordings.
//
// Names, once learnt, become pseudonyms of the same length wherever they are whole words; numbers of cards become test
// numbers; the digits of contacts become 0; free text becomes X. The length stays, so columns do. Each occurrence of a
// name or of a number is hidden the same way, and hiding what is hidden already changes nothing: a new Redactor over
// the hidden texts, in the same order, leaves them as they are.
//
// The host's own words stay where the host says them, even when a passenger has their name: keywords, air segments up
// to the cities, the columns of the header, the months of dates, the marks of pages.
//
// docs/redaction.md says what is hidden and what cannot be found. What the texts are cut into is told in passages.h.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "redaction/passages.h"
#include "redaction/pseudonyms.h"
#include "redaction/test_numbers.h"

namespace wendrill::redaction {

// What can be kept as it is.
enum class Kind { Names, Cards, Contacts, Remarks };

class Redactor {
 public:
  explicit Redactor(std::set<Kind> kept = {});

  // Collects the names, and the numbers of contacts, in a text that will follow or has just come: a screen, a PNR's
  // display, an entry, the text of a name ("1.SMITH/JOHN MR"). Rows are 80 columns unless the text has line breaks; a
  // screen comes as one buffer without breaks. A name is hidden only in what is hidden after it was learnt: where all
  // texts are at hand, learn them first.
  void Learn(std::u16string_view text);

  // The text with everything hidden that is not kept, of the same length. Learns from it first. For screens, displays,
  // entries, and any other text alike.
  std::u16string Hide(std::u16string_view text);

  // Whether Hide would change an entry. Learns from it, as Hide does.
  bool Hides(std::u16string_view text);

  // What must no longer be in a finished file: every name that was learnt, in capitals, to be looked for as a whole
  // word whatever its capitals; every number of a card that was hidden, as written. Without names that a hidden text
  // still has: where the host says the same word, or as the pseudonym of another name.
  const std::set<std::u16string>& Tokens() const { return tokens_; }

 private:
  bool IsHidden(Kind kind) const { return !kept_.contains(kind); }
  void LearnFrom(TextView text, const std::vector<Passage>& passages);
  void LearnNumbers(TextView contact);
  void HideNumbers(TextView written, Layout layout, std::u16string& text);
  void HideNames(const std::vector<Passage>& passages, std::u16string& text);
  void HideNamesIn(const Passage& passage, std::u16string& text);
  void KeepForHost(const std::u16string& word);

  std::set<Kind> kept_;
  Pseudonyms pseudonyms_;
  TestNumbers testNumbers_;
  TextSet contactNumbers_;  // digits alone
  TextSet hostWords_;       // that the host said; of three letters and more, in capitals
  std::set<std::u16string> tokens_;
};

// The kinds in a list such as "names,cards", whatever its capitals; an empty set for an empty list. nullopt for an
// unknown word, which is then in `wrong`.
std::optional<std::set<Kind>> KindsIn(std::u16string_view list, std::u16string& wrong);

}  // namespace wendrill::redaction
