// Reads the start of a row of a PNR's display: the number of an element, a name or a group, and an element's keyword.
#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>

#include "common/text.h"
#include "derive/required_layout.h"
#include "derive/words.h"

namespace wendrill::simulator {

// The number at the start of a row, in columns 1 to 4, and the text after the number.
struct NumberedRow {
  TextView number;
  TextView rest;
};

// Splits a row into its number and the text after the number; nullopt when the row does not begin with a number that
// ends in column 4 or before, or has no text after the number.
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

// Whether the text after a number begins a name: ".SMITH/JOHN". False when a blank or a digit follows the point. In the
// row of a group, a digit follows the point: ".25SCHOOL TRIP".
inline bool BeginsName(TextView afterNumber) {
  return afterNumber.size() > 1 && afterNumber[0] == u'.' && afterNumber[1] != kBlank && !IsDigit(afterNumber[1]);
}

inline bool BeginsElement(TextView afterNumber) {
  return afterNumber.front() == kBlank || StartsWith(afterNumber, kGluedKeyword);
}

inline bool BeginsGroup(TextView afterNumber) {
  return afterNumber.front() == u'.' && Contains(afterNumber, kGroupMark);
}

// The number of digits at the start of the text; 0 when the text does not begin with a digit.
inline std::size_t EndOfDigits(TextView text) {
  return std::min(text.find_first_not_of(u"0123456789"), text.size());
}

// The keyword of an element: the capitals and digits at the start of the element's body. A "*" before the keyword is
// skipped: "SSR" for "*SSR VGML".
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
