#include "core/screen.h"

#include <algorithm>

#include "common/text.h"

namespace wendrill::simulator {
namespace {

constexpr std::u16string_view kLineBreaks = u"\r\n";

// The length of the line break with which the text begins: 2 for CR LF, 1 for CR or LF. REQUIRES: the text begins with
// a line break.
std::size_t BreakLength(std::u16string_view text) {
  return StartsWith(text, kLineBreaks) ? 2 : 1;
}

std::vector<std::u16string> RowsOf(std::u16string_view text, std::size_t columns) {
  std::vector<std::u16string> rows;
  for (; !text.empty(); text.remove_prefix(std::min(columns, text.size()))) {
    rows.emplace_back(text.substr(0, columns));
  }
  return rows;
}

}  // namespace

std::vector<std::u16string_view> LinesOfBlock(std::u16string_view block) {
  std::vector<std::u16string_view> lines;
  while (!block.empty()) {
    const std::size_t end = std::min(block.find_first_of(kLineBreaks), block.size());
    lines.push_back(block.substr(0, end));
    block.remove_prefix(end);
    if (!block.empty()) {
      block.remove_prefix(BreakLength(block));
    }
  }
  return lines;
}

std::optional<std::size_t> FirstLineWiderThan(std::u16string_view block, std::size_t columns) {
  const auto lines = LinesOfBlock(block);
  const auto wide =
      std::find_if(lines.begin(), lines.end(), [columns](std::u16string_view line) { return line.size() > columns; });
  if (wide == lines.end()) {
    return std::nullopt;
  }
  return static_cast<std::size_t>(wide - lines.begin());
}

Screen PaddedScreen(std::u16string_view block, std::size_t columns) {
  Screen screen;
  for (const std::u16string_view line : LinesOfBlock(block)) {
    std::u16string row(line);
    row.resize(columns, kBlank);
    screen.buffer += row;
    screen.rows.push_back(std::move(row));
  }
  return screen;
}

Screen RawScreen(std::u16string_view block, std::size_t columns) {
  Screen screen{std::u16string(block), {}};
  if (block.find_first_of(kLineBreaks) == std::u16string_view::npos) {
    screen.rows = RowsOf(block, columns);
  } else {
    const auto lines = LinesOfBlock(block);
    screen.rows.assign(lines.begin(), lines.end());
  }
  return screen;
}

std::u16string LinesWithBreaks(std::u16string_view block) {
  std::u16string text;
  for (const std::u16string_view line : LinesOfBlock(block)) {
    text.append(line).append(kLineBreaks);
  }
  return text;
}

}  // namespace wendrill::simulator
