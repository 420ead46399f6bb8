#include "pnr/creation_line.h"

#include "common/text.h"
#include "pnr/numbered_lines.h"

namespace wendrill {
namespace {

// The line that begins with kKeyword, and the creation line, which is the line after it:
// RP/PARXX0100/PARXX0100            AM/SU  12JUN08/0930Z   ABC123
// PARXX0100/0001AA/12JUN08                                            the creation line
constexpr TextView kKeyword = u"RP/";

}  // namespace

std::u16string_view CreationLineIn(std::u16string_view display) {
  NumberedLines lines(display);
  for (TextView line = lines.Next(); !StartsWith(line, kKeyword); line = lines.Next()) {
    if (line.empty() && lines.Number() > 1) {
      return {};
    }
  }
  return TrimmedRight(lines.Next());
}

}  // namespace wendrill
