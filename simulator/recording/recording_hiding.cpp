#include "recording/recording_hiding.h"

#include <algorithm>

#include "common/text.h"
#include "redaction/digits.h"
#include "redaction/letters.h"
#include "redaction/pseudonyms.h"

namespace wendrill::recording {
namespace {

constexpr char16_t kAnyCharacter = u'?';
constexpr char16_t kPartSeparator = u';';

// A prefix for texts that are not entries. No entry and no row of a display begins with this prefix, so the redactor
// does not take the text for an entry.
constexpr std::u16string_view kNoEntry = u"= ";

// Prefixes that make the text of an element look like its row in a display, so that the redactor recognises the kind of
// the element. In kBeforeElement, two blanks follow the element number, because air segments need two blanks.
// kBeforeNumberedName is for a name element whose text already contains the number. kBeforeFreeText is for the property
// FreeFlow, which is hidden like the text of a remark.
constexpr std::u16string_view kBeforeElement = u"  1  ";
constexpr std::u16string_view kBeforeName = u"  1.";
constexpr std::u16string_view kBeforeNumberedName = u"  ";
constexpr std::u16string_view kBeforeFreeText = u"  1  RM ";

std::u16string_view ContextOf(const simulator::Collection& collection, std::u16string_view text) {
  if (&collection.elementType != &simulator::kNameElement) {
    return kBeforeElement;
  }
  const std::size_t digits = std::min(text.find_first_not_of(u"0123456789"), text.size());
  return digits > 0 && text.substr(digits, 1) == u"." ? kBeforeNumberedName : kBeforeName;
}

const std::u16string* TextIn(const ReadObject& element, std::u16string_view property) {
  const auto found = element.properties.find(std::u16string(property));
  return found == element.properties.end() ? nullptr : found->second.As<std::u16string>();
}

bool IsHalfOfPair(std::u16string_view text, std::size_t at) {
  const auto isIn = [&](std::size_t index, char16_t first, char16_t last) {
    return index < text.size() && text[index] >= first && text[index] <= last;
  };
  const auto isFirst = [&](std::size_t index) { return isIn(index, 0xD800, 0xDBFF); };
  const auto isSecond = [&](std::size_t index) { return isIn(index, 0xDC00, 0xDFFF); };
  return (isFirst(at) && !isSecond(at + 1)) || (isSecond(at) && (at == 0 || !isFirst(at - 1)));
}

// Decides which characters of an entry become wildcards (?) in the pattern that RecordingHiding::FormOf returns.
class OpenPlaces {
 public:
  OpenPlaces(std::u16string_view entry, std::u16string_view hidden) : entry_(entry), open_(entry.size()) {
    for (std::size_t i = 0; i < entry.size(); ++i) {
      open_[i] = entry[i] != hidden[i] || IsHalfOfPair(entry, i);
    }
    OpenNames(hidden);
    OpenNumbers();
    if (std::ranges::find(open_, true) != open_.end()) {
      OpenWildcards();
    }
  }

  // Returns the pattern. A semicolon never becomes a wildcard. Semicolons separate the entries that a program sends
  // packed in one, and only a pattern that contains the semicolons matches such a packed entry as a whole.
  std::u16string Form() const {
    std::u16string form(entry_);
    for (std::size_t i = 0; i < form.size(); ++i) {
      form[i] = open_[i] && form[i] != kPartSeparator ? kAnyCharacter : form[i];
    }
    return form;
  }

 private:
  // A replacement may by chance have a letter or digit in common with the word or number that it replaces. The pattern
  // must not depend on the choice of the replacement. So when one character of a word or number is a wildcard, all its
  // characters become wildcards.
  void OpenNames(std::u16string_view hidden) {
    redaction::LetterWords words(hidden);
    for (auto word = words.Next(); word; word = words.Next()) {
      if (redaction::HasFormOfPseudonym(redaction::Capitals(word->In(hidden)))) {
        OpenAllIfAny(word->Size(), [&word](std::size_t i) { return word->begin + i; });
      }
    }
  }
  void OpenWildcards() {
    for (std::size_t i = 0; i < entry_.size(); ++i) {
      open_[i] = open_[i] || entry_[i] == u'*' || entry_[i] == kAnyCharacter;
    }
  }
  void OpenNumbers() {
    redaction::DigitRuns runs(entry_, redaction::Layout::OneLine);
    for (auto run = runs.Next(); run; run = runs.Next()) {
      OpenAllIfAny(run->places.size(), [&run](std::size_t i) { return run->places[i]; });
    }
  }
  template <typename PlaceOf>
  void OpenAllIfAny(std::size_t count, PlaceOf placeOf) {
    bool isAny = false;
    for (std::size_t i = 0; i < count; ++i) {
      isAny = isAny || open_[placeOf(i)];
    }
    for (std::size_t i = 0; isAny && i < count; ++i) {
      open_[placeOf(i)] = true;
    }
  }

  std::u16string_view entry_;
  std::vector<bool> open_;
};

}  // namespace

std::u16string RowsAsLines(std::u16string_view buffer, std::size_t columns) {
  if (HasLineBreak(buffer) || columns == 0) {
    return std::u16string(buffer);
  }
  std::u16string lines;
  for (; !buffer.empty(); buffer.remove_prefix(std::min(columns, buffer.size()))) {
    lines.append(buffer.substr(0, columns)).push_back(u'\n');
  }
  return lines;
}

void RecordingHiding::LearnScreen(std::u16string_view buffer, std::size_t columns) {
  redaction::TextSet& learnt = learntScreens_[columns];
  if (!learnt.contains(buffer)) {
    learnt.emplace(buffer);
    redactor_.Learn(RowsAsLines(buffer, columns));
  }
}

void RecordingHiding::LearnEntry(std::u16string_view entry) {
  if (!learntEntries_.contains(entry)) {
    learntEntries_.emplace(entry);
    redactor_.Learn(entry);
  }
}

void RecordingHiding::LearnElement(const simulator::Collection& collection, const ReadObject& element) {
  if (const auto* text = TextIn(element, u"Text")) {
    redactor_.Learn(std::u16string(ContextOf(collection, *text)) + *text);
  }
  const auto* last = TextIn(element, u"LastName");
  const auto* initial = TextIn(element, u"Initial");
  if (last != nullptr && initial != nullptr) {
    redactor_.Learn(std::u16string(kBeforeName) + *last + u"/" + *initial);
  }
}

std::u16string_view RecordingHiding::Screen(std::u16string_view buffer, std::size_t columns) {
  redaction::TextMap& screens = screens_[columns];
  if (const auto known = screens.find(buffer); known != screens.end()) {
    return known->second;
  }
  const std::u16string lines = RowsAsLines(buffer, columns);
  std::u16string hidden = redactor_.Hide(lines);
  if (lines.size() != buffer.size()) {
    std::erase(hidden, u'\n');
  }
  return screens.emplace(buffer, std::move(hidden)).first->second;
}

std::u16string_view RecordingHiding::Entry(std::u16string_view entry) {
  const auto known = entries_.find(entry);
  return known == entries_.end() ? entries_.emplace(entry, redactor_.Hide(entry)).first->second : known->second;
}

std::u16string RecordingHiding::WithContext(std::u16string_view context, std::u16string_view text) {
  return redactor_.Hide(std::u16string(context).append(text)).substr(context.size());
}

std::u16string RecordingHiding::Words(std::u16string_view text) {
  return WithContext(kNoEntry, text);
}

Value RecordingHiding::Property(const simulator::Collection& collection, std::u16string_view name, const Value& value) {
  const auto* text = value.As<std::u16string>();
  if (text == nullptr || name == u"ElementNo") {
    return value;
  }
  if (name == u"Text") {
    return WithContext(ContextOf(collection, *text), *text);
  }
  return name == u"FreeFlow" ? WithContext(kBeforeFreeText, *text) : Words(*text);
}

Value RecordingHiding::HeaderProperty(std::u16string_view name, const Value& value) {
  const auto* text = value.As<std::u16string>();
  if (text == nullptr) {
    return value;
  }
  return name == u"Text" || name == u"Line" ? Value(Screen(*text, kRowWidth)) : Value(Words(*text));
}

std::u16string RecordingHiding::FormOf(std::u16string_view entry) {
  return OpenPlaces(entry, Entry(entry)).Form();
}

}  // namespace wendrill::recording
