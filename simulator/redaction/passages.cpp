#include "redaction/passages.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "derive/rows.h"
#include "derive/segments.h"
#include "redaction/host_words.h"

namespace wendrill::redaction {
namespace {

using simulator::IsCapitalOrDigit;
using simulator::LettersAtStartOf;
using simulator::NumberedRow;
using simulator::NumberedRowOf;
using simulator::WordAtStartOf;

constexpr char16_t kQuote = u'"';
constexpr TextView kGap = u"    ";

// How certain it must be that a text is an entry, judged by its head, the first letters of the text:
// - HeadAlone: the head is followed by no letter, or by X, the letter that replaces hidden text.
// - Head, for the start of a single line: the condition of HeadAlone is met, or the head is in capitals.
//
// A text with the head RM or RC is an entry even when neither condition is met.
enum class Certainty { Head, HeadAlone };

bool IsContinuation(TextView row) {
  return StartsWith(row, simulator::kContinuationIndent);
}

bool BeginsElement(const std::optional<NumberedRow>& row) {
  return row && simulator::BeginsElement(row->rest);
}

bool IsSign(char16_t character) {
  return character != kBlank && !IsLetter(character) && !IsDigit(character);
}

// Whether the text is an association without its slash: "P1", "S2-3", "P1,3".
bool IsAssociation(TextView text) {
  constexpr std::size_t kMostDigits = 3;
  const bool isMarked = !text.empty() && (Capital(text[0]) == u'P' || Capital(text[0]) == u'S');
  if (!isMarked) {
    return false;
  }
  std::size_t digits = 0;
  for (const char16_t each : text.substr(1)) {
    const bool isJoint = each == u'-' || each == u',';
    if (isJoint ? digits == 0 : !IsDigit(each) || digits == kMostDigits) {
      return false;
    }
    digits = isJoint ? 0 : digits + 1;
  }
  return digits > 0;
}

// The text without the associations at its end ("/P1/S2-3"), and without blanks at the end of the result.
TextView WithoutAssociations(TextView text) {
  text = TrimmedRight(text);
  for (std::size_t slash = text.rfind(u'/'); slash != TextView::npos && IsAssociation(text.substr(slash + 1));
       slash = text.rfind(u'/')) {
    text = TrimmedRight(text.substr(0, slash));
  }
  return text;
}

// The text from its start up to the first blank, slash or hyphen, or to the end.
TextView FieldAtStartOf(TextView text) {
  return text.substr(0, text.find_first_of(u" /-"));
}

// Whether the word has the form of an airline code: two letters or digits, at least one of them a letter ("AF", "U2").
bool IsAirline(TextView word) {
  return word.size() == simulator::kAirlineWidth && std::ranges::any_of(word, IsLetter) &&
         std::ranges::all_of(word, [](char16_t each) { return IsLetter(each) || IsDigit(each); });
}

// Whether the word has the form of a status code with a number of passengers: two letters and one to three digits
// ("HK1", "HK12").
bool IsStatus(TextView word) {
  constexpr std::size_t kLetters = 2;
  constexpr std::size_t kMost = 5;
  return word.size() > kLetters && word.size() <= kMost && std::ranges::all_of(word.substr(0, kLetters), IsLetter) &&
         std::ranges::all_of(word.substr(kLetters), IsDigit);
}

// Whether the word is `keyword`, or `keyword` with one more letter, such as RMH for RM.
bool IsKeyword(TextView word, TextView keyword) {
  return StartsWith(word, keyword) && word.size() <= keyword.size() + 1;
}

bool IsFreeTextKeyword(TextView word) {
  return std::ranges::any_of(kFreeTextKeywords, [word](TextView known) { return IsKeyword(word, known); });
}

bool IsContentKeyword(TextView word) {
  return IsFreeTextKeyword(word) || IsKeyword(word, kContact);
}

// The first string in the table with which the text begins, whether the text has capitals or small letters. Empty when
// the text begins with none of the strings.
template <std::size_t Size>
TextView HeadIn(const TextView (&table)[Size], TextView text) {
  const auto* found = std::ranges::find_if(table, [text](TextView head) { return StartsWithAnyCase(text, head); });
  return found == std::end(table) ? TextView() : *found;
}

// Divides one text into passages.
class Cutting {
 public:
  explicit Cutting(TextView text) : text_(text) {}

  std::vector<Passage> Run() {
    if (LayoutOf(text_) == Layout::OneLine) {
      ReadOneLine();
    } else {
      for (DisplayLines lines(text_); !lines.AtEnd();) {
        ReadRow(lines.Next());
      }
    }
    return WithOthers();
  }

 private:
  // The passages that were found, in order, with a passage of the kind Other for each part of the text between them.
  std::vector<Passage> WithOthers() const {
    std::vector<Passage> all;
    all.reserve(2 * passages_.size() + 1);
    std::size_t end = 0;
    for (const Passage& passage : passages_) {
      if (end < passage.begin) {
        all.push_back({PassageKind::Other, end, passage.begin});
      }
      all.push_back(passage);
      end = passage.end;
    }
    if (end < text_.size()) {
      all.push_back({PassageKind::Other, end, text_.size()});
    }
    return all;
  }

  void Add(PassageKind kind, TextView view, bool continues = false) {
    if (!view.empty()) {
      const auto begin = static_cast<std::size_t>(view.data() - text_.data());
      passages_.push_back({kind, begin, begin + view.size(), continues});
    }
  }

  // --- Rows ----------------------------------------------------------------------------------------------------------

  void ReadOneLine() {
    if (!ReadEntries(text_, Certainty::Head)) {
      ReadRow(text_);
    }
  }

  void ReadRow(TextView line) {
    const TextView row = TrimmedRight(line);
    if (IsContinuation(row)) {
      Continue(row);
      return;
    }
    goesOn_.reset();
    if (row.empty()) {
      return;
    }
    const auto numbered = NumberedRowOf(row);
    if (numbered && simulator::BeginsGroup(numbered->rest)) {
      return;
    }
    if (numbered && simulator::BeginsName(numbered->rest)) {
      Begin(PassageKind::Names, numbered->rest);
    } else if (BeginsElement(numbered)) {
      ReadElement(*numbered);
    } else if (StartsWith(row, simulator::kHeaderMark)) {
      ReadHeader(row);
    } else if (!ReadEcho(row) && !ReadPageMark(row)) {
      ReadQuoted(row);
    }
  }

  void Continue(TextView row) {
    if (goesOn_) {
      Hold(*goesOn_, TrimmedLeft(row), true);
    } else if (!ReadPageMark(row)) {
      ReadQuoted(row);
    }
  }

  // Adds a passage whose text may continue in the continuation rows that follow.
  void Begin(PassageKind kind, TextView view) {
    Hold(kind, view, false);
    goesOn_ = kind;
  }

  // Adds `view` as a passage. A passage of names is added whole; a passage of any other kind is added without the
  // associations at its end.
  void Hold(PassageKind kind, TextView view, bool continues) {
    if (kind == PassageKind::FreeText && !continues && !view.empty() && IsSign(view.front())) {
      // The sign after the keyword, such as the "*" of "RM*TEXT", is not hidden. If the sign became an X, the X would
      // be read as a letter of the keyword.
      view.remove_prefix(1);
    }
    Add(kind, kind == PassageKind::Names ? view : WithoutAssociations(view), continues);
  }

  // Adds "RP/" and the columns with offices, date and locator as words of the host. The rest of the row is of the kind
  // Other, because it may contain anything.
  void ReadHeader(TextView row) {
    Add(PassageKind::Host, row.substr(0, simulator::kHeaderMark.size()));
    for (const ColumnRange range : {simulator::kOfficeColumns, simulator::kQueueOfficeColumns,
                                    simulator::kHeaderDateColumns, simulator::kLocatorColumns}) {
      Add(PassageKind::Host, Columns(row, range));
    }
  }

  bool ReadPageMark(TextView row) {
    const TextView text = Trimmed(row);
    std::size_t at = TextView::npos;
    if (text == kMoreWord || text == kEndOfDisplay) {
      at = 0;
    } else if (StartsWith(text, kPrompt.substr(0, 1))) {
      at = text.find(kPageWord);
    }
    if (at == TextView::npos) {
      return false;
    }
    Add(PassageKind::Host, text.substr(at, text == kEndOfDisplay ? text.size() : kPageWord.size()));
    return true;
  }

  // Reads an entry that the terminal echoes at the start of a row. The prompt or blanks may precede the entry. Returns
  // whether the row contains such an entry. Only entries that begin with one of kEchoedHeads are recognised.
  bool ReadEcho(TextView row) {
    if (row.front() == kPrompt.front()) {
      row.remove_prefix(1);
    }
    const TextView entry = TrimmedLeft(row);
    const bool isEntry = !HeadIn(kEchoedHeads, entry).empty() && ReadEntries(entry, Certainty::HeadAlone);
    goesOn_.reset();
    return isEntry;
  }

  void ReadQuoted(TextView row) {
    for (std::size_t open = row.find(kQuote); open != TextView::npos;) {
      const std::size_t close = std::min(row.find(kQuote, open + 1), row.size());
      const TextView quoted = row.substr(open + 1, close - open - 1);
      const bool isRead = ReadEntries(quoted, Certainty::HeadAlone) || ReadNumbered(quoted);
      open = row.find(kQuote, isRead ? close + 1 : close);
    }
    goesOn_.reset();
  }

  bool ReadNumbered(TextView text) {
    const auto numbered = NumberedRowOf(text);
    if (numbered && simulator::BeginsName(numbered->rest)) {
      Add(PassageKind::Names, numbered->rest);
    } else if (BeginsElement(numbered)) {
      ReadElement(*numbered);
    } else {
      return false;
    }
    return true;
  }

  // --- Elements ------------------------------------------------------------------------------------------------------

  void ReadElement(const NumberedRow& row) {
    const TextView body = TrimmedLeft(row.rest);
    if (StartsWith(row.rest, simulator::kAirIndent)) {
      if (const auto air = simulator::AirSegmentIn(body)) {
        const auto end = static_cast<std::size_t>(air->offPoint.data() + air->offPoint.size() - body.data());
        Add(PassageKind::Host, body.substr(0, end));
        return;
      }
    }
    const TextView keyword = KeywordOf(body);
    const bool isKnown = IsContentKeyword(keyword) || IsElementKeyword(keyword);
    if (!isKnown && IsListedName(body)) {
      Add(PassageKind::Names, NameAtStartOf(body));
      return;
    }
    if (isKnown) {
      Add(PassageKind::Host, keyword);
    }
    ReadBody(keyword, body.substr(static_cast<std::size_t>(keyword.data() - body.data()) + keyword.size()));
  }

  // The keyword at the start of an element's body. Hidden free text may directly follow the keyword: for "RMXXXX",
  // returns "RM".
  static TextView KeywordOf(TextView body) {
    const TextView keyword = LettersAtStartOf(WordAtStartOf(body));
    const TextView shown = keyword.substr(0, keyword.find_last_not_of(u'X') + 1);
    return !IsFreeTextKeyword(keyword) && IsFreeTextKeyword(shown) ? shown : keyword;
  }

  void ReadBody(TextView keyword, TextView rest) {
    if (keyword == kOtherService) {
      Begin(PassageKind::FreeText, AfterAirline(rest));
    } else if (IsFreeTextKeyword(keyword)) {
      Begin(PassageKind::FreeText, rest);
    } else if (IsKeyword(keyword, kContact)) {
      Begin(PassageKind::Contact, rest);
    } else if (keyword == kService) {
      ReadService(rest);
    } else if (IsIn(kSegmentKeywords, keyword)) {
      ReadSegment(rest);
    } else {
      ReadTicketing(keyword, rest);
    }
  }

  static TextView AfterAirline(TextView rest) {
    const TextView text = TrimmedLeft(rest);
    const TextView word = text.substr(0, text.find(kBlank));
    return IsAirline(word) && word.size() < text.size() ? text.substr(word.size()) : rest;
  }

  // Reads the text of a special service after the keyword: " FQTV AF HK1/AF1234567890/P1". Adds the service code as a
  // passage of the kind Host. If the service is a contact service, also adds the text after airline and status: as a
  // passage of the kind Document for DOCS, and of the kind Contact for any other code. Adds nothing when the service
  // code does not have four characters.
  void ReadService(TextView rest) {
    const TextView text = TrimmedLeft(rest);
    const TextView code = FieldAtStartOf(text);
    if (code.size() != kServiceCodeWidth) {
      return;
    }
    Add(PassageKind::Host, code);
    const std::u16string capitals = Capitals(code);
    if (!IsIn(kContactServices, capitals)) {
      return;
    }
    TextView fields = text.substr(code.size());
    fields = After(IsAirline, u" -/", fields);
    fields = After(IsStatus, u" ", fields);
    Begin(capitals == kDocument ? PassageKind::Document : PassageKind::Contact, fields);
  }

  // Removes the separators at the start of `fields` and the field after them, and returns the rest. Returns `fields`
  // unchanged when no separator is at the start, or when `is` returns false for the field.
  static TextView After(bool (*is)(TextView), TextView separators, TextView fields) {
    const TextView trimmed = fields.substr(std::min(fields.find_first_not_of(separators), fields.size()));
    const TextView field = FieldAtStartOf(trimmed);
    return trimmed.size() < fields.size() && is(field) ? trimmed.substr(field.size()) : fields;
  }

  // Adds the city of a segment as a word of the host, if the city is between a status and a date. `rest` is the text
  // after the keyword. In " QH HK1 NCE IN15JUN", the city is NCE.
  void ReadSegment(TextView rest) {
    constexpr std::size_t kCity = 3;
    simulator::Words words(rest);
    words.Next();
    if (!IsStatus(words.Next())) {
      return;
    }
    const TextView city = words.Next();
    TextView date = words.Peek();
    date.remove_prefix(StartsWith(date, simulator::kCheckInMark) ? simulator::kCheckInMark.size() : 0);
    if ((city.size() == kCity || city.size() == 2 * kCity) && !date.empty() && IsDigit(date.front())) {
      Add(PassageKind::Host, city);
    }
  }

  // Adds the words at the start of `rest` that are words of the host: PAX and INF after a keyword that begins with F,
  // and the forms of payment CASH and CHECK after the keyword FP. `rest` is the text after the keyword: " PAX CASH".
  void ReadTicketing(TextView keyword, TextView rest) {
    const bool isTicketing = StartsWith(keyword, u"F");
    simulator::Words words(rest);
    while (isTicketing && IsIn(simulator::kPassengerWords, words.Peek())) {
      Add(PassageKind::Host, words.Next());
    }
    const TextView payment = FieldAtStartOf(words.Rest());
    if (keyword == kFormOfPayment && IsIn(kPayments, payment)) {
      Add(PassageKind::Host, payment);
    }
  }

  // --- Lists of similar names ----------------------------------------------------------------------------------------

  // Whether the body of a numbered row is a row in a list of names: "SMITH/JOHN MR        ABC123". In such a row, a
  // slash and a letter directly follow the first word. In an element, a slash and a letter never directly follow the
  // keyword.
  static bool IsListedName(TextView body) {
    const std::size_t slash = body.find_first_of(u"/ ");
    const auto isPartOfName = [](char16_t each) { return IsLetter(each) || each == u'-' || each == u'\''; };
    return slash != TextView::npos && slash > 1 && body[slash] == u'/' &&
           std::ranges::all_of(body.substr(0, slash), isPartOfName) && slash + 1 < body.size() &&
           IsLetter(body[slash + 1]);
  }

  // The name at the start of the text. The name ends before two consecutive blanks, before a digit outside of
  // parentheses, or at the end of the text.
  static TextView NameAtStartOf(TextView body) {
    bool isInParentheses = false;
    for (std::size_t at = 0; at < body.size(); ++at) {
      isInParentheses = body[at] == u'(' || (isInParentheses && body[at] != u')');
      const bool isGap = body[at] == kBlank && at + 1 < body.size() && body[at + 1] == kBlank;
      if (isGap || (!isInParentheses && IsDigit(body[at]))) {
        return body.substr(0, at);
      }
    }
    return body;
  }

  // --- Entries -------------------------------------------------------------------------------------------------------

  // Reads one entry, or several entries separated by ";". Returns whether at least one entry was recognised.
  bool ReadEntries(TextView entries, Certainty certainty) {
    if (!HeadIn(kNeverPacked, entries).empty()) {
      return ReadEntry(entries, certainty);
    }
    bool isAny = false;
    bool isFreeText = false;
    while (!entries.empty()) {
      const std::size_t end = std::min(entries.find(kPartSeparator), entries.size());
      const TextView part = entries.substr(0, end);
      if (isFreeText && StartsWith(part, u" ")) {
        // No entry begins with a blank, so the ";" before this blank is part of the free text before the ";".
        Hold(PassageKind::FreeText, part, true);
      } else {
        isFreeText = false;
        if (ReadEntry(TrimmedLeft(part), certainty)) {
          isAny = true;
          isFreeText = !passages_.empty() && passages_.back().kind == PassageKind::FreeText;
        }
      }
      entries.remove_prefix(std::min(end + 1, entries.size()));
    }
    return isAny;
  }

  // Whether the text begins with `head` and is an entry under the condition that `certainty` requires (see Certainty).
  static bool IsHeadOf(TextView head, TextView entry, Certainty certainty) {
    if (!StartsWithAnyCase(entry, head)) {
      return false;
    }
    constexpr char16_t kHidden = u'X';
    const bool isAlone = entry.size() == head.size() || !IsLetter(entry[head.size()]) || entry[head.size()] == kHidden;
    return isAlone || IsIn(kUnmistakableHeads, head) || (certainty == Certainty::Head && StartsWith(entry, head));
  }

  bool ReadEntry(TextView entry, Certainty certainty) {
    const TextView freeText = HeadIn(kFreeTextHeads, entry);
    if (!freeText.empty() && IsHeadOf(freeText, entry, certainty)) {
      const TextView rest = entry.substr(freeText.size());
      Hold(PassageKind::FreeText, freeText == kOtherServiceHead ? AfterAirline(rest) : rest, false);
      return true;
    }
    if (IsHeadOf(kContact, entry, certainty)) {
      Hold(PassageKind::Contact, entry.substr(kContact.size()), false);
      return true;
    }
    return ReadServiceEntry(entry) || ReadNameEntry(entry) || ReadRetrievalByName(entry);
  }

  // Reads an entry that adds a contact service: "SRDOCS AF HK1-P-FRA-...", "SR FQTV AF-AF123", "SSR DOCS ...". Returns
  // false for any other entry.
  bool ReadServiceEntry(TextView entry) {
    for (const TextView head : {kServiceHead, kService}) {
      if (StartsWithAnyCase(entry, head)) {
        const TextView rest = TrimmedLeft(entry.substr(head.size()));
        if (IsIn(kContactServices, Capitals(FieldAtStartOf(rest)))) {
          ReadService(rest);
          return true;
        }
      }
    }
    return false;
  }

  // Reads an entry that adds names: "NM1SMITH/JOHN MR". Returns false for any other entry, and when a letter other than
  // the X of hidden text follows NM.
  bool ReadNameEntry(TextView entry) {
    if (!IsHeadOf(kNameHead, entry, Certainty::HeadAlone)) {
      return false;
    }
    Add(PassageKind::Names, entry.substr(kNameHead.size()));
    return true;
  }

  // Reads an entry that retrieves a PNR by a name. The name is after the slash in "RT/SMITH". In "RT12JUN-SMITH", it is
  // after the first hyphen, and a digit must precede that hyphen. Returns false for any other entry.
  bool ReadRetrievalByName(TextView entry) {
    if (!StartsWithAnyCase(entry, kRetrievalHead)) {
      return false;
    }
    const TextView rest = entry.substr(kRetrievalHead.size());
    const TextView criteria = rest.substr(0, rest.find(u'-'));
    if (StartsWith(rest, u"/")) {
      Add(PassageKind::Names, rest);
    } else if (criteria.size() < rest.size() && std::ranges::any_of(criteria, IsDigit)) {
      Add(PassageKind::Names, rest.substr(criteria.size()));
    } else {
      return false;
    }
    return true;
  }

  TextView text_;
  std::vector<Passage> passages_;
  std::optional<PassageKind> goesOn_;  // the kind of the passage that a continuation row continues; nullopt for none
};

}  // namespace

// The layout of a text is decided by the first of these rules that applies:
//   - A text with line breaks has the layout Lines.
//   - A text of at most 80 characters is OneLine.
//   - A text that fills whole rows of 80 columns and ends with a blank is in Rows.
//   - A text that begins like an entry (kEntryHeads) is OneLine.
//   - A text without four successive blanks (kGap), which rows filled to 80 columns would contain, is OneLine.
//   - A text that begins like an element is OneLine if its characters after column 80 do not begin like a row.
//   - Any other text is in Rows.
Layout LayoutOf(TextView text) {
  if (HasLineBreak(text)) {
    return Layout::Lines;
  }
  if (text.size() <= kRowWidth) {
    return Layout::OneLine;
  }
  if (text.size() % kRowWidth == 0 && text.back() == kBlank) {
    return Layout::Rows;
  }
  if (!HeadIn(kEntryHeads, text).empty() || !Contains(text, kGap)) {
    return Layout::OneLine;
  }
  const TextView second = text.substr(kRowWidth, kRowWidth);
  const bool isSecondRow = IsContinuation(second) || NumberedRowOf(second) || second.front() == kPrompt.front();
  return BeginsElement(NumberedRowOf(text)) && !isSecondRow ? Layout::OneLine : Layout::Rows;
}

std::vector<Passage> PassagesOf(TextView text) {
  return Cutting(text).Run();
}

}  // namespace wendrill::redaction
