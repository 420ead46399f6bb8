// Split-party lines of the display: "* SP 12JUN/0001AA/PARXX0100-ABC123". The last six characters are a record locator.
#include "scan/display_kinds.h"
#include "scan/display_walk.h"
#include "scan/reread_lines.h"

namespace wendrill {
namespace {

constexpr std::array kKeys = {
    ArrayKey{u"strKeyElement"},
    ArrayKey{u"strKeyRecLoc"},
};

struct Record : ElementRecord<kKeys> {
  using ElementRecord::ElementRecord;
};

// A split-party line, trimmed:
//          1         2         3
// 1234567890123456789012345678901234
// * SP 12JUN/0001AA/PARXX0100-ABC123
constexpr TextView kKeyword = u"* SP";        // at the beginning of the trimmed line
constexpr std::ptrdiff_t kLocatorLength = 6;  // the record locator is at the end of the trimmed line

LineMeaning Judge(TextView line, std::int16_t number) {
  if (Contains(line, kPrompt)) {
    return LineMeaning::End;
  }
  if (line.empty()) {
    return MayBeginEmpty(number) ? LineMeaning::Other : LineMeaning::End;
  }
  return StartsWith(Trimmed(line), kKeyword) ? LineMeaning::Element : LineMeaning::Other;
}

void Store(TextView line, Record record) {
  const TextView element = Trimmed(line);
  record.Set(u"strKeyElement", element);
  record.Set(u"strKeyRecLoc", LastColumns(element, kLocatorLength));
}

std::int16_t Scan(DisplayReader& display, ElementArrays& arrays) {
  RereadLines lines(display);
  return ScanLines<Counting::BeforeStoring>(
      lines, arrays, [&](TextView line) { return Judge(line, lines.Number()); },
      [&](TextView line, std::int16_t index) { Store(line, Record(arrays, index)); });
}

}  // namespace

constexpr DisplayKind kSPElements = {
    .count = CountOf::SPElements,
    .askedAs = u"* SP",
    .keys = kKeys,
    .scan = Scan,
    .countNumber = 2056,
    .getterNumber = 2259,
};

}  // namespace wendrill
