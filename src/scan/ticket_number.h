// The ticket number in a ticketing line.
#pragma once

#include "common/text.h"

namespace wendrill {

// The ticket number of an element, trimmed. The number begins at the second character after "PAX", and ends before the
// next "/" or at the end of the element. When the element does not contain "PAX", the ticket number is the part of
// `otherwise` before its first "/".
inline TextView TicketNumber(TextView element, TextView otherwise) {
  constexpr TextView kPassenger = u"PAX";
  const std::ptrdiff_t column = ColumnOf(element, kPassenger);
  const TextView number = column == 0 ? otherwise : FromColumn(element, column + std::ssize(kPassenger) + 1);
  return Trimmed(Before(number, u"/"));
}

}  // namespace wendrill
