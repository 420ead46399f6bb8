// A CPNR's scans over a PNR that is nothing but its display.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "scan/display_scans.h"
#include "support/pnr_desk.h"  // Rows, kElementMessage
#include "support/raises.h"
#include "support/scan_comparison.h"

namespace wendrill::testing {

// Lines verbatim, each ended by CR LF.
std::u16string Lines(const std::vector<std::u16string>& lines);

struct ScanDesk {
  DisplayedPnr pnr;
  DisplayScans scans{pnr.Module()};

  // Shows the display and counts.
  std::int16_t Count(const DisplayKind& kind, std::u16string_view display) {
    pnr.Show(display);
    return scans.Count(kind);
  }

  // What the last scan stored: flags read "True" and "False". A key that the kind does not have fails the test.
  std::u16string Stored(const DisplayKind& kind, std::u16string_view key, std::int32_t index) const;

  // Whether every array of the kind holds index 0 alone, as it is before anything is stored.
  bool HoldsNothing(const DisplayKind& kind) const;
};

}  // namespace wendrill::testing
