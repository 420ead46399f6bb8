// Screens as tests write them: rows of 80 characters without line breaks.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "common/text.h"

namespace wendrill::testing {

// A text filled with blanks to a row of 80; a longer one stays as it is.
inline std::u16string Row(std::u16string_view text) {
  std::u16string row(text);
  if (row.size() < kRowWidth) {
    row.resize(kRowWidth, kBlank);
  }
  return row;
}

// A screen of these rows.
inline std::u16string Screen(std::initializer_list<std::u16string_view> rows) {
  std::u16string screen;
  for (const auto row : rows) {
    screen += Row(row);
  }
  return screen;
}

}  // namespace wendrill::testing
