#include "pnr/element_lines.h"

#include <string>
#include <vector>

#include "common/error.h"
#include "common/text.h"
#include "pnr/numbered_lines.h"

namespace wendrill {
namespace {

//          1         2
// 12345678901234567890123
//  12 SSR VGML SK HK1
//        AND SO ON           a continuation line
constexpr ColumnRange kElementNr = {1, 4};
constexpr std::ptrdiff_t kElementColumn = 5;
constexpr TextView kContinuationIndent = u"       ";
constexpr int kContinuationLines = 4;

// The string with which the beginnings of elements are compared. A prefix of two or three characters is a keyword:
// Normalised converts the keyword to capitals and appends a blank. A shorter or longer prefix is returned unchanged.
std::u16string Normalised(TextView prefix) {
  const bool isKeyword = prefix.size() == 2 || prefix.size() == 3;
  return isKeyword ? UpperCase(prefix) + kBlank : std::u16string(prefix);
}

// The prefixes from index 1 on, each as Normalised returns it. Raises 9 (index out of range) when `prefixes` is not
// empty and its lower bound is above 1. Intentional: a prefix at an index below 1, such as the first prefix of an array
// that counts from 0, is ignored.
std::vector<std::u16string> TriedPrefixes(const TextArray& prefixes) {
  std::vector<std::u16string> tried;
  if (prefixes.items.empty()) {
    return tried;
  }
  if (prefixes.lowerBound > 1) {
    Raise(RunTimeError::SubscriptOutOfRange);
  }
  std::int32_t index = prefixes.lowerBound;
  for (const std::u16string& prefix : prefixes.items) {
    if (index++ >= 1) {
      tried.push_back(Normalised(prefix));
    }
  }
  return tried;
}

// Appends continuation lines to the element: the lines at the beginning of `following` that are indented by at least
// seven blanks, at most four lines.
void Continue(std::u16string& element, NumberedLines following) {
  for (int k = 1; k <= kContinuationLines; ++k) {
    const TextView line = TrimmedRight(following.Next());
    if (!StartsWith(line, kContinuationIndent)) {
      return;
    }
    element = std::u16string(Trimmed(element)) + kBlank + std::u16string(Trimmed(line));
  }
}

}  // namespace

ElementLines ElementLinesIn(std::u16string_view display, const TextArray& prefixes) {
  const std::vector<std::u16string> tried = TriedPrefixes(prefixes);
  ElementLines found{{.lowerBound = 1, .items = {}}, {.lowerBound = 1, .items = {}}};
  NumberedLines lines(display);
  for (TextView line = lines.Next(); !line.empty(); line = lines.Next()) {
    const TextView number = Trimmed(Columns(line, kElementNr));
    std::u16string element(FromColumn(line, kElementColumn));
    for (const std::u16string& prefix : tried) {
      if (StartsWith(element, prefix)) {
        // Intentional: after the first matching prefix, `element` includes its continuation lines. Each further
        // matching prefix appends these continuation lines to `element` once more.
        Continue(element, lines);
        found.texts.items.emplace_back(Trimmed(element));
        found.numbers.items.emplace_back(number);
      }
    }
  }
  return found;
}

}  // namespace wendrill
