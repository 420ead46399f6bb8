#include "pnr/creation_line.h"

#include "common/text.h"
#include "pnr/numbered_lines.h"

namespace wendrill {

std::u16string_view CreationLineIn(std::u16string_view display) {
  NumberedLines lines(display);
  for (TextView line = lines.Next(); !StartsWith(line, u"RP/"); line = lines.Next()) {
    if (line.empty() && lines.Number() > 1) {
      return {};
    }
  }
  return TrimmedRight(lines.Next());
}

}  // namespace wendrill
