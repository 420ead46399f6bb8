// What a row of a PNR's display begins with: the number of an element, of a name or of a group, and a keyword.
#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>

#include "common/text.h"
#include "derive/required_layout.h"
#include "derive/words.h"

namespace wendrill::simulator {

// The number that a row begins with, in the columns of element numbers, and what follows it.
struct NumberedRow {
  TextView number;
  TextView rest;
};

inline std::optional<NumberedRow> NumberedRowOf(TextView row) {
  const std::size_t begin = std::min(row.find_first_not_of(kBlank), row.size());
  std::size_t end = begin;
  while (end < row.size() && end <= kNumberColumns && IsDigit(row[end])) {
    ++end;
  }
  if (end == begin || end > kNumberColumns || end == row.size()) {
    return std::nullopt;
  }
  return NumberedRow{row.substr(begin, end - begin), row.substr(end)};
}

// Whether a name follows the number: ".SMITH/JOHN". The group's row has a number after its point.
inline bool BeginsName(TextView afterNumber) {
  return afterNumber.size() > 1 && afterNumber[0] == u'.' && afterNumber[1] != kBlank && !IsDigit(afterNumber[1]);
}

inline bool BeginsElement(TextView afterNumber) {
  return afterNumber.front() == kBlank || StartsWith(afterNumber, kGluedKeyword);
}

inline bool BeginsGroup(TextView afterNumber) {
  return afterNumber.front() == u'.' && Contains(afterNumber, kGroupMark);
}

// The end of the digits at the start of the text.
inline std::size_t EndOfDigits(TextView text) {
  return std::min(text.find_first_not_of(u"0123456789"), text.size());
}

// The keyword of an element's body: "SSR" of "*SSR VGML".
inline TextView WordAtStartOf(TextView body) {
  if (!body.empty() && body.front() == u'*') {
    body.remove_prefix(1);
  }
  return body.substr(0, static_cast<std::size_t>(std::ranges::find_if_not(body, IsCapitalOrDigit) - body.begin()));
}

inline TextView LettersAtStartOf(TextView word) {
  return word.substr(0, static_cast<std::size_t>(std::ranges::find_if_not(word, IsCapital) - word.begin()));
}

}  // namespace wendrill::simulator
