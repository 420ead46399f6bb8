// Split-party entries: "* SP 12JUN/0001AA/PARXX0100-ABC123".
#include <algorithm>
#include <string>

#include "pnr/numbered_lines.h"
#include "pnr/toolkit_pnr.h"
#include "scan/scanners.h"

namespace wendrill {
namespace {

using Record = ElementRecord<kSPKeys>;

constexpr std::ptrdiff_t kLocatorLength = 6;

// The lines of the display, which is read anew for each of them. A display that has not changed meanwhile is walked on
// where the last line ended; in another one the line of the next number is sought from its beginning.
class RereadLines {
 public:
  explicit RereadLines(const ModuleState& state) : state_(state) {}

  TextView Next() {
    std::u16string display = DisplayText(state_);
    if (!std::equal(display.begin(), display.end(), display_.begin(), display_.end())) {
      display_ = std::move(display);
      Restart();
    }
    return lines_.Next();
  }

  std::int16_t Number() const { return lines_.Number(); }

 private:
  void Restart() {
    const std::int16_t number = lines_.Number();
    lines_ = NumberedLines(display_);
    while (lines_.Number() < number) {
      lines_.Next();
    }
  }

  const ModuleState& state_;
  std::u16string display_;
  NumberedLines lines_{display_};
};

LineMeaning Judge(TextView line, std::int16_t number) {
  if (Contains(line, kPrompt)) {
    return LineMeaning::End;
  }
  if (line.empty()) {
    return MayBeginEmpty(number) ? LineMeaning::Other : LineMeaning::End;
  }
  return StartsWith(Trimmed(line), u"* SP") ? LineMeaning::Element : LineMeaning::Other;
}

void Store(TextView line, Record record) {
  const TextView element = Trimmed(line);
  record.Set(u"strKeyElement", element);
  record.Set(u"strKeyRecLoc", LastColumns(element, kLocatorLength));
}

}  // namespace

ScanCount ScanSPElements(const ModuleState& state, ElementArrays& arrays) {
  RereadLines lines(state);
  return ScanLines<Counting::BeforeStoring>(
      lines, arrays, [&](TextView line) { return Judge(line, lines.Number()); },
      [&](TextView line, std::int16_t index) { Store(line, Record(arrays, index)); });
}

}  // namespace wendrill
