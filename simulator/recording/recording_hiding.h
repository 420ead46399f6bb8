// What a recording hides in its texts, each hidden as what it is: a screen, an entry, the text of an element, anything
// else.
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

// The rows of a screen or display as lines. Row for row is how a text is hidden and how it is searched: a screen of one
// row is no entry.
std::u16string RowsAsLines(std::u16string_view buffer, std::size_t columns);

// What a recording is told first, it hides first. So the texts of the host come before the entries of the program: in a
// replay the host's texts are hidden already and keep their replacements, and the entries, which are as before, get the
// same ones again.
class RecordingHiding {
 public:
  explicit RecordingHiding(std::set<redaction::Kind> kept) : redactor_(std::move(kept)) {}

  // Collects names and numbers. Everything is learnt before anything is hidden.
  void LearnScreen(std::u16string_view buffer, std::size_t columns);
  void LearnEntry(std::u16string_view entry);
  void LearnElement(const simulator::Collection& collection, const ReadObject& element);

  // Of the same length. The views are valid as long as this object: what comes again is hidden once.
  std::u16string_view Screen(std::u16string_view buffer, std::size_t columns);
  std::u16string_view Entry(std::u16string_view entry);

  // A text that is no entry, even if it begins as one does: a name, a sentence.
  std::u16string Words(std::u16string_view text);

  // A property of an element, or of the header.
  Value Property(const simulator::Collection& collection, std::u16string_view name, const Value& value);
  Value HeaderProperty(std::u16string_view name, const Value& value);

  // The form of all entries that differ from this one only in what hiding changes, with ? for each such character; a *
  // or ? of the entry is a ? as well, and so is half a surrogate pair. The same as the entry when nothing changes.
  std::u16string FormOf(std::u16string_view entry);

  const std::set<std::u16string>& Tokens() const { return redactor_.Tokens(); }

 private:
  std::u16string WithContext(std::u16string_view context, std::u16string_view text);

  redaction::Redactor redactor_;
  std::map<std::size_t, redaction::TextSet> learntScreens_;  // by their columns
  std::map<std::size_t, redaction::TextMap> screens_;        // hidden, likewise
  redaction::TextSet learntEntries_;
  redaction::TextMap entries_;  // hidden
};

}  // namespace wendrill::recording
