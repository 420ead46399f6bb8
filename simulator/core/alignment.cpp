// Alignment::Distance and Alignment::DistanceFrom fill a table row by row. The cell in row i and column j holds the
// distance between the first i characters of the first argument and the first j characters of the second argument. Only
// the current row and the two rows above it are kept: a swap of two neighbouring characters needs the row two above the
// current row.
#include "core/alignment.h"

#include <algorithm>
#include <utility>

namespace wendrill::simulator {

void Alignment::Begin(std::size_t width, std::size_t lastOfFirstRow, std::size_t above) {
  twoBack_.assign(width, above);
  before_.assign(width, above);
  row_.assign(width, above);
  for (std::size_t j = 0; j < std::min(width, lastOfFirstRow + 1); ++j) {
    row_[j] = j;
  }
}

void Alignment::NextRow() {
  std::swap(twoBack_, before_);
  std::swap(before_, row_);
}

// Computes only the cells at most `limit` columns from the diagonal: all other cells would hold distances above
// `limit`.
std::size_t Alignment::Distance(std::u16string_view left, std::u16string_view right, std::size_t limit) {
  if (left.size() > right.size()) {
    std::swap(left, right);
  }
  limit = std::min(limit, right.size());
  const std::size_t above = limit + 1;
  if (right.size() - left.size() > limit) {
    return above;
  }
  Begin(right.size() + 1, limit, above);
  for (std::size_t i = 1; i <= left.size(); ++i) {
    NextRow();
    const std::size_t first = i > limit ? i - limit : 0;
    const std::size_t last = std::min(i + limit, right.size());
    std::size_t least = above;
    if (first > 0) {
      row_[first - 1] = above;
    }
    for (std::size_t j = first; j <= last; ++j) {
      std::size_t cell = before_[j] + 1;
      if (j > 0) {
        cell = std::min({cell, row_[j - 1] + 1, before_[j - 1] + (left[i - 1] == right[j - 1] ? 0u : 1u)});
      }
      if (i > 1 && j > 1 && left[i - 1] == right[j - 2] && left[i - 2] == right[j - 1]) {
        cell = std::min(cell, twoBack_[j - 2] + 1);
      }
      row_[j] = std::min(cell, above);
      least = std::min(least, row_[j]);
    }
    steps_ += last - first + 1;
    if (last < right.size()) {
      row_[last + 1] = above;
    }
    if (least == above) {
      return above;
    }
  }
  return row_[right.size()];
}

std::size_t Alignment::DistanceFrom(std::u16string_view pattern, std::u16string_view text, std::size_t limit) {
  const std::size_t above = limit + 1;
  Begin(text.size() + 1, text.size(), above);
  for (std::size_t i = 1; i <= pattern.size(); ++i) {
    NextRow();
    const char16_t expected = pattern[i - 1];
    const bool isRun = expected == kAnyCharacters;
    row_[0] = before_[0] + (isRun ? 0u : 1u);
    std::size_t least = row_[0];
    for (std::size_t j = 1; j <= text.size(); ++j) {
      const bool fits = expected == kAnyCharacter || expected == text[j - 1];
      std::size_t cell = isRun ? std::min(before_[j], row_[j - 1])
                               : std::min({before_[j] + 1, row_[j - 1] + 1, before_[j - 1] + (fits ? 0u : 1u)});
      if (i > 1 && j > 1 && expected == text[j - 2] && pattern[i - 2] == text[j - 1]) {
        cell = std::min(cell, twoBack_[j - 2] + 1);
      }
      row_[j] = cell;
      least = std::min(least, cell);
    }
    steps_ += text.size();
    if (least > limit) {
      return above;
    }
  }
  return std::min(row_[text.size()], above);
}

}  // namespace wendrill::simulator
