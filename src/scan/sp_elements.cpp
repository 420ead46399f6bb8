// Split-party entries: "* SP 12JUN/0001AA/PARXX0100-ABC123".
#include "pnr/reread_lines.h"
#include "scan/scanners.h"

namespace wendrill {
namespace {

using Record = ElementRecord<kSPKeys>;

constexpr std::ptrdiff_t kLocatorLength = 6;

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
