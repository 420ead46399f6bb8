// Reads the start of a row of a PNR's display: the number of an element, a name or a group, and the keyword.
#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>

#include "common/text.h"
#include "derive/required_layout.h"
#include "derive/words.h"

namespace wendrill::simulator {

// The number at the start of a row, within the columns of element numbers, and the text after the number.
struct NumberedRow {
  TextView number;
  TextView rest;
};

// The two parts of a row; nullopt when the row has no number in columns 1 to 4, or nothing after the number.
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

// Whether a name follows the number: ".SMITH/JOHN". In the row of a group, a digit follows the point.
inline bool BeginsName(TextView afterNumber) {
  return afterNumber.size() > 1 && afterNumber[0] == u'.' && afterNumber[1] != kBlank && !IsDigit(afterNumber[1]);
}

inline bool BeginsElement(TextView afterNumber) {
  return afterNumber.front() == kBlank || StartsWith(afterNumber, kGluedKeyword);
}

inline bool BeginsGroup(TextView afterNumber) {
  return afterNumber.front() == u'.' && Contains(afterNumber, kGroupMark);
}

// The index after the digits at the start of the text; 0 when the text does not begin with a digit.
inline std::size_t EndOfDigits(TextView text) {
  return std::min(text.find_first_not_of(u"0123456789"), text.size());
}

// The keyword at the start of an element's body, without "*": "SSR" of "*SSR VGML".
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
