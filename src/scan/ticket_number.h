// The ticket number in a ticketing line.
#pragma once

#include "common/text.h"

namespace wendrill {

// The ticket number of an element, trimmed: the text from the second character after "PAX" to the first "/" or the end.
// When the element has no "PAX", the ticket number is the text of `otherwise` up to its first "/".
inline TextView TicketNumber(TextView element, TextView otherwise) {
  constexpr TextView kPassenger = u"PAX";
  const std::ptrdiff_t column = ColumnOf(element, kPassenger);
  const TextView number = column == 0 ? otherwise : FromColumn(element, column + std::ssize(kPassenger) + 1);
  return Trimmed(Before(number, u"/"));
}

}  // namespace wendrill
