// Converts a block, which is a string of several lines in a scenario file, to the buffer of a response.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wendrill::simulator {

// A response's buffer, and the text of the buffer split into rows.
struct Screen {
  std::u16string buffer;
  std::vector<std::u16string> rows;
};

// The lines of a block, split at CR LF, CR or LF. A line break at the end of the block adds no empty line.
std::vector<std::u16string_view> LinesOfBlock(std::u16string_view block);

// The index (counted from 0) of the first line of the block that is longer than `columns` characters; nullopt when no
// line is longer.
std::optional<std::size_t> FirstLineWiderThan(std::u16string_view block, std::size_t columns);

// The screen whose rows are the lines of the block, each filled with blanks to `columns` characters. The buffer is the
// rows without line breaks between them. REQUIRES: no line is longer than `columns` characters.
Screen PaddedScreen(std::u16string_view block, std::size_t columns);

// The screen whose buffer is the block verbatim. The rows of the screen are the lines of the block. When the block has
// no line break, it is split into rows of `columns` characters; the last row may be shorter.
Screen RawScreen(std::u16string_view block, std::size_t columns);

// The lines of the block verbatim, each ended by CR LF.
std::u16string LinesWithBreaks(std::u16string_view block);

}  // namespace wendrill::simulator
