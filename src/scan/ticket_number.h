// The ticket number in a ticketing line.
#pragma once

#include "common/text.h"

namespace wendrill {

// The ticket number of an element: the text from the second character after "PAX" on, or `otherwise` when the element
// has no "PAX". The number ends before the first "/" and is trimmed.
inline TextView TicketNumber(TextView element, TextView otherwise) {
  constexpr TextView kPassenger = u"PAX";
  const std::ptrdiff_t column = ColumnOf(element, kPassenger);
  const TextView number = column == 0 ? otherwise : FromColumn(element, column + std::ssize(kPassenger) + 1);
  return Trimmed(Before(number, u"/"));
}

}  // namespace wendrill
