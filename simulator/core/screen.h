// Screens: how the blocks of text in a scenario become buffers.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wendrill::simulator {

// What a response holds: its buffer, and the same cut into rows.
struct Screen {
  std::u16string buffer;
  std::vector<std::u16string> rows;
};

// The lines of a block, cut at CR LF, CR or LF. The break behind the last line makes no further line.
std::vector<std::u16string_view> LinesOfBlock(std::u16string_view block);

// The first line (counted from 0) that has more characters than a row has columns; nothing when all fit.
std::optional<std::size_t> FirstLineWiderThan(std::u16string_view block, std::size_t columns);

// Each line filled with blanks to a whole row, the rows joined without breaks. Every line must fit.
Screen PaddedScreen(std::u16string_view block, std::size_t columns);

// The block as it stands. Its rows are its lines, or, without any break, pieces of as many characters as there are
// columns.
Screen RawScreen(std::u16string_view block, std::size_t columns);

// The lines as they stand, each ended by CR LF.
std::u16string LinesWithBreaks(std::u16string_view block);

}  // namespace wendrill::simulator
