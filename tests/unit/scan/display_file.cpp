#include "unit/scan/display_file.h"

#include <fstream>
#include <stdexcept>
#include <vector>

#include "common/text.h"
#include "support/describe.h"
#include "support/us_text.h"
#include "unit/scan/scan_desk.h"

namespace wendrill::testing {
namespace {

std::vector<std::string> LinesOf(const std::filesystem::path& path) {
  std::ifstream in(path);
  if (!in) {
    throw std::runtime_error(path.string() + ": cannot be read");
  }
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) {
    lines.push_back(line);
  }
  return lines;
}

}  // namespace

std::u16string ReadDisplay(const std::filesystem::path& path) {
  const std::vector<std::string> file = LinesOf(path);
  const std::string form = file.empty() ? "" : file.front();
  std::vector<std::u16string> lines;
  for (std::size_t i = 1; i < file.size(); ++i) {
    lines.push_back(FromUtf8(file[i]));
  }
  if (form == "lines:") {
    return Lines(lines);
  }
  if (form == "rows:") {
    return Rows(lines);
  }
  if (form == "screen:" && !lines.empty()) {
    const std::u16string last = lines.back();
    lines.pop_back();
    return Rows(lines) + last;
  }
  throw std::runtime_error(path.string() + ": no form of display: " + form);
}

std::string ReadExpectedRecords(const std::filesystem::path& path) {
  std::string text;
  for (const std::string& line : LinesOf(path)) {
    text += line.starts_with('#') ? "" : line + "\n";
  }
  return text;
}

std::string RecordsText(std::int16_t count, const ElementArrays& arrays) {
  ElementArrays empty(arrays.Keys());
  empty.Reset();
  std::string text = "count " + std::to_string(count) + "\n";
  for (std::int32_t index = 0; index <= arrays.UpperBound(); ++index) {
    text += "index " + std::to_string(index) + "\n";
    for (std::size_t key = 0; key < arrays.Keys().size(); ++key) {
      const Value entry = arrays.At(key, index);
      if (entry != empty.At(key, 0)) {
        text += ToUtf8(arrays.Keys()[key].name) + " = " + Describe(Value(ToUsText(entry))) + "\n";
      }
    }
  }
  return text;
}

}  // namespace wendrill::testing
