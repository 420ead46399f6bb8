// Screens: how a block of text in a scenario becomes a buffer.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wendrill::simulator {

// A response's buffer, and the same text split into rows.
struct Screen {
  std::u16string buffer;
  std::vector<std::u16string> rows;
};

// The lines of a block, split at CR LF, CR or LF. A line break at the end of the block adds no empty line.
std::vector<std::u16string_view> LinesOfBlock(std::u16string_view block);

// The first line (counted from 0) that is longer than a row of `columns`; nullopt when all lines fit.
std::optional<std::size_t> FirstLineWiderThan(std::u16string_view block, std::size_t columns);

// Each line filled with blanks to a whole row, the rows joined without breaks. Every line must fit.
Screen PaddedScreen(std::u16string_view block, std::size_t columns);

// The block verbatim. Its rows are its lines; a block without line breaks is split into rows of `columns` characters.
Screen RawScreen(std::u16string_view block, std::size_t columns);

// The lines verbatim, each ended by CR LF.
std::u16string LinesWithBreaks(std::u16string_view block);

}  // namespace wendrill::simulator
