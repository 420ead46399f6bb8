#include "redaction/names.h"

#include <algorithm>
#include <utility>

#include "redaction/host_words.h"

namespace wendrill::redaction {
namespace {

// Reports the word to `found`, unless the word is shorter than three letters, a title, a passenger type, or the month
// of a date with a year (12JAN01).
void Tell(TextView text, Word word, const WordReader& found) {
  if (word.Size() >= kLeastLetters && !IsIn(kNoNames, Capitals(word.In(text))) && !IsMonthOfDateWithYear(text, word)) {
    found(word.In(text));
  }
}

// Reports the word to `found` under the conditions of Tell, but leaves out the month of every date, also of a date
// without a year (12JAN).
void TellUnlessMonth(TextView text, Word word, const WordReader& found) {
  if (!IsMonthOfDate(text, word)) {
    Tell(text, word, found);
  }
}

// Reads a row of names without the number at its beginning: ".SMITH/JOHN MR(CHD/12JAN01)   2.MILLER/ANN MRS(INF/LEA)".
// Reports all words outside of parentheses. Inside parentheses, reports only the words after INF, the passenger type of
// an infant.
class NameReader {
 public:
  explicit NameReader(const WordReader& found) : found_(found) {}

  // Reads a row of names. When `continues` is true, the row continues the row of the previous call, and so the row may
  // begin inside parentheses.
  void Read(TextView names, bool continues) {
    place_ = continues ? place_ : Place::Outside;
    LetterWords words(names);
    std::size_t read = 0;
    for (auto word = words.Next(); word; word = words.Next()) {
      ReadMarks(names, read, word->begin);
      const bool isType = place_ == Place::Type;
      if (isType) {
        place_ = IsInfant(names, *word) ? Place::Infant : Place::OtherType;
      }
      if (place_ != Place::OtherType) {
        Tell(names, *word, found_);
      }
      read = word->end;
    }
    ReadMarks(names, read, names.size());
  }

 private:
  // The place of the next word. Outside: outside of parentheses. Type: directly after "(", where the passenger type is.
  // Infant: in parentheses, after INF. OtherType: in parentheses that begin with another passenger type.
  enum class Place { Outside, Type, OtherType, Infant };

  // Updates place_ from the characters between two words. "(" begins parentheses, and ")" ends them. The number of a
  // further name, such as "   2.", ends parentheses that were not closed.
  void ReadMarks(TextView names, std::size_t begin, std::size_t end) {
    for (std::size_t at = begin; at < end; ++at) {
      const bool beginsName = names[at] == u'.' && at > begin && IsDigit(names[at - 1]) && at + 1 == end &&
                              names.substr(begin, at - begin).find(u"  ") != TextView::npos;
      if (names[at] == u'(') {
        place_ = Place::Type;
      } else if (names[at] == u')' || beginsName) {
        place_ = Place::Outside;
      }
    }
  }

  // Whether parentheses contain the name of an infant. `word` is the first word in the parentheses as LetterWords
  // returns it: INF for "(INF/LEA", but DOE for "(INFDOE/LEA".
  static bool IsInfant(TextView names, Word word) {
    return Capitals(word.In(names)) == kInfant || (word.begin > 0 && IsLetter(names[word.begin - 1]));
  }

  const WordReader& found_;
  Place place_ = Place::Outside;
};

// Reads the fields of DOCS: "/P/FRA/12AB34567/FRA/12JUL76/M/23AUG16/SMITH/JOHN". The separator of the fields is the
// first slash or hyphen in the text. Reports the words from field 7 (kFirstNameField) on.
class DocumentReader {
 public:
  explicit DocumentReader(const WordReader& found) : found_(found) {}

  void Read(TextView fields, bool continues) {
    if (!continues) {
      field_ = 1;
      const TextView trimmed = TrimmedLeft(fields);
      const std::size_t separator = trimmed.find_first_of(u"/-");
      separator_ = separator == TextView::npos ? u'/' : trimmed[separator];
      fields = separator == 0 ? trimmed.substr(1) : trimmed;
    }
    LetterWords words(fields);
    std::size_t read = 0;
    for (auto word = words.Next(); word; word = words.Next()) {
      Count(fields.substr(read, word->begin - read));
      read = word->end;
      if (field_ >= kFirstNameField) {
        Tell(fields, *word, found_);
      }
    }
    Count(fields.substr(read));
  }

 private:
  void Count(TextView between) { field_ += static_cast<int>(std::ranges::count(between, separator_)); }

  const WordReader& found_;
  int field_ = 1;  // the number of the current field, counted from 1
  char16_t separator_ = u'/';
};

bool IsTitle(TextView word) {
  return IsIn(kTitles, Capitals(word));
}

// Reports the words of names that end with a title, such as "SMITH/JOHN PETER MR". Such a name consists of a word, a
// slash, one to four words and a title, with single blanks between these words and before the title. Months of dates
// are not reported.
void ReadTitledNames(TextView text, const WordReader& found) {
  constexpr int kMostWords = 4;
  LetterWords words(text);
  Word before{0, 0};
  for (auto word = words.Next(); word; word = words.Next()) {
    const bool followsSlash = word->begin == before.end + 1 && text[before.end] == u'/' && before.Size() > 0;
    const Word surname = std::exchange(before, *word);
    if (!followsSlash) {
      continue;
    }
    LetterWords given(text.substr(word->begin));
    std::size_t end = 0;
    int count = 0;
    bool isTitled = false;
    for (auto next = given.Next(); next && count <= kMostWords && !isTitled; next = given.Next()) {
      const TextView rest = text.substr(word->begin);
      if (count > 0 && (next->begin != end + 1 || rest[end] != kBlank)) {
        break;
      }
      end = next->end;
      isTitled = count > 0 && IsTitle(next->In(rest));
      ++count;
    }
    if (isTitled) {
      TellUnlessMonth(text, surname, found);
      LetterWords parts(text.substr(word->begin, end));
      for (auto part = parts.Next(); part; part = parts.Next()) {
        TellUnlessMonth(text.substr(word->begin, end), *part, found);
      }
    }
  }
}

}  // namespace

void ForEachNameIn(TextView text, const std::vector<Passage>& passages, const WordReader& found) {
  NameReader names(found);
  DocumentReader document(found);
  for (const Passage& passage : passages) {
    if (passage.kind == PassageKind::Names) {
      names.Read(passage.In(text), passage.continues);
    } else if (passage.kind == PassageKind::Document) {
      document.Read(passage.In(text), passage.continues);
    } else if (passage.kind != PassageKind::Host) {
      ReadTitledNames(passage.In(text), found);
    }
  }
}

}  // namespace wendrill::redaction
