// Hides personal data in the texts of traces and recordings.
//
//   - Names, once learnt, become pseudonyms wherever they are whole words.
//   - Card numbers become test numbers.
//   - The digits of contacts become 0.
//   - Every character of free text except a blank becomes X.
//
// A hidden text has the length of the original, so its columns do not move. Each occurrence of a name is replaced by
// the same pseudonym, and each occurrence of a card number by the same test number. Hiding is idempotent: when a new
// Redactor gets the hidden texts in the order of the original texts, it leaves them unchanged.
//
// The host's own words are not hidden where the host writes them, even when a passenger has such a name. These words
// are keywords, air segments up to the cities, the columns of the header, the months of dates and the marks of pages.
//
// docs/redaction.md lists what is hidden and what cannot be found. passages.h explains how a text is divided.
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

// The kinds of personal data. Each kind is hidden unless the constructor of Redactor gets it in `kept`.
enum class Kind { Names, Cards, Contacts, Remarks };

class Redactor {
 public:
  // Hides all kinds except those in `kept`.
  explicit Redactor(std::set<Kind> kept = {});

  // Collects the names and the contact numbers in a text, except those of a kind in `kept` (see the constructor). The
  // text may be a screen, a PNR's display, an entry, or the text of a name ("1.SMITH/JOHN MR"). A screen is one buffer
  // without line breaks and is read as rows of 80 columns; a display may have line breaks. Hide and Hides hide a name
  // only after the name was learnt. So learn all texts before the first text is hidden, if they are available.
  void Learn(std::u16string_view text);

  // Returns the text, in its original length, with all personal data hidden except the kinds in `kept` (see the
  // constructor). Learns from the text first. `text` may be a screen, a display, an entry, or any other text.
  std::u16string Hide(std::u16string_view text);

  // Whether Hide would change the text. Learns from the text, as Hide does.
  bool Hides(std::u16string_view text);

  // The texts that a finished file must no longer contain:
  //   - Each name that was learnt, in capitals. Search for the name as a whole word, in any case.
  //   - Each card number that was hidden, as it was written.
  //
  // Names that hidden texts may still contain are left out: names that are also words of the host, and names that are
  // the pseudonym of another name.
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
  TextSet contactNumbers_;  // the digits of each number, without separators
  TextSet hostWords_;       // words of three letters and more, in capitals, found where the host writes its own words
  std::set<std::u16string> tokens_;
};

// The kinds that a list such as "names,cards" names; an empty set for an empty list. Words may be written in capital or
// small letters, with blanks around them. When the list contains an unknown word, returns nullopt and stores this word
// in `wrong`.
std::optional<std::set<Kind>> KindsIn(std::u16string_view list, std::u16string& wrong);

}  // namespace wendrill::redaction
