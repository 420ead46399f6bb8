// Hides personal data in the texts of a recording, with a function for each kind of text: a screen, an entry, a
// property of an element, any other text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "common/value.h"
#include "derive/object_model.h"
#include "recording/recording.h"
#include "redaction/pseudonyms.h"
#include "redaction/redactor.h"

namespace wendrill::recording {

// Returns the rows of a screen or a PNR's display as lines, each ended by \n, because texts are hidden and searched
// line by line. The line break also shows the redactor that a screen of one row is not an entry. Returns the buffer
// unchanged when the buffer has line breaks already, or when `columns` is 0.
std::u16string RowsAsLines(std::u16string_view buffer, std::size_t columns);

// Callers must learn all texts of the host (LearnScreen, LearnElement) before the entries of the program (LearnEntry).
// Names get their pseudonyms in the order in which the names are learnt, and this order makes a recording of a replay
// identical to the recording that is replayed:
// - In a replay, the texts of the host contain pseudonyms instead of names. A pseudonym remains unchanged unless it is
//   already the pseudonym of another name.
// - In a replay, the entries of the program contain the real names again. Because these names are learnt last, they do
//   not get the pseudonyms that are in the texts of the host.
class RecordingHiding {
 public:
  explicit RecordingHiding(std::set<redaction::Kind> kept) : redactor_(std::move(kept)) {}

  // The three Learn functions collect the names and numbers of a text. REQUIRES: all texts of the recording are learnt
  // before any text is hidden.
  void LearnScreen(std::u16string_view buffer, std::size_t columns);
  void LearnEntry(std::u16string_view entry);
  void LearnElement(const simulator::Collection& collection, const ReadObject& element);

  // Screen and Entry return the text with personal data hidden and with its length unchanged. The results are cached;
  // the views are valid as long as this object exists.
  std::u16string_view Screen(std::u16string_view buffer, std::size_t columns);
  std::u16string_view Entry(std::u16string_view entry);

  // Returns any other text, such as a name or a sentence, with personal data hidden. The text is not taken for an entry
  // even if it begins like an entry.
  std::u16string Words(std::u16string_view text);

  // Property returns the value of a property of an element with personal data hidden, HeaderProperty the value of a
  // property of the header. A value that is not a string is returned unchanged, and so is the ElementNo of an element.
  Value Property(const simulator::Collection& collection, std::u16string_view name, const Value& value);
  Value HeaderProperty(std::u16string_view name, const Value& value);

  // Returns a `like` pattern that matches the entry and all entries that differ from it only in hidden words and
  // numbers. The pattern has a ? for each character of a hidden word or number, for any other hidden character, and for
  // each unpaired half of a surrogate pair. If the pattern has such a ?, each * and ? of the entry becomes a ? as well.
  // A semicolon never becomes a ?. Returns the entry unchanged when the entry contains nothing to hide and no unpaired
  // half of a surrogate pair.
  std::u16string FormOf(std::u16string_view entry);

  const std::set<std::u16string>& Tokens() const { return redactor_.Tokens(); }

 private:
  std::u16string WithContext(std::u16string_view context, std::u16string_view text);

  redaction::Redactor redactor_;
  std::map<std::size_t, redaction::TextSet> learntScreens_;  // by number of columns
  std::map<std::size_t, redaction::TextMap> screens_;        // the hidden text of each screen, by number of columns
  redaction::TextSet learntEntries_;
  redaction::TextMap entries_;  // the hidden text of each entry
};

}  // namespace wendrill::recording
