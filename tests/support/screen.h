// Builds screens for tests: rows of 80 characters without line breaks.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "common/text.h"

namespace wendrill::testing {

// The text padded with blanks to a row of 80 characters; a longer text is returned unchanged.
inline std::u16string Row(std::u16string_view text) {
  std::u16string row(text);
  if (row.size() < kRowWidth) {
    row.resize(kRowWidth, kBlank);
  }
  return row;
}

// A screen of these rows, each padded to 80 characters.
inline std::u16string Screen(std::initializer_list<std::u16string_view> rows) {
  std::u16string screen;
  for (const auto row : rows) {
    screen += Row(row);
  }
  return screen;
}

}  // namespace wendrill::testing
