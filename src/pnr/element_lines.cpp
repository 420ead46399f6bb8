#include "pnr/element_lines.h"

#include <string>
#include <vector>

#include "common/error.h"
#include "common/text.h"
#include "pnr/numbered_lines.h"

namespace wendrill {
namespace {

constexpr std::ptrdiff_t kNumberWidth = 4;
constexpr int kContinuationLines = 4;
constexpr TextView kContinuationIndent = u"       ";

// A text of two or three letters is a keyword: its capitals and the blank behind it.
std::u16string Normalised(TextView prefix) {
  const bool isKeyword = prefix.size() == 2 || prefix.size() == 3;
  return isKeyword ? UpperCase(prefix) + kBlank : std::u16string(prefix);
}

// The prefixes from index 1 on. In an array that counts from 0 the first one is therefore never tried: meant so.
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

// Appends the indented lines that follow, four at most.
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
    const TextView number = Trimmed(FirstColumns(line, kNumberWidth));
    std::u16string element(FromColumn(line, kNumberWidth + 1));
    for (const std::u16string& prefix : tried) {
      if (StartsWith(element, prefix)) {
        // The element grows where it stands: a second prefix that fits finds the continuation in it and appends it
        // again.
        Continue(element, lines);
        found.texts.items.emplace_back(Trimmed(element));
        found.numbers.items.emplace_back(number);
      }
    }
  }
  return found;
}

}  // namespace wendrill
