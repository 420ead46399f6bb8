// A scanner and its slow reference side by side on one display.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "scan/display_scans.h"
#include "support/test_world.h"

namespace wendrill::testing {

struct ReferenceScan;

// A PNR that is nothing but its display. Its element collection, which surface segments are read from, has an element
// for every line: the number up to the first "|", the text after it.
class DisplayedPnr {
 public:
  DisplayedPnr();

  // What the reads of the display text answer in turn; the last one stays.
  void Show(std::vector<std::u16string> readings);
  void Show(std::u16string_view display) { Show(std::vector<std::u16string>{std::u16string(display)}); }

  // Reads of the display text since it was shown.
  std::size_t Reads() const { return reads_; }

  ModuleState& Module() { return desk_.module; }
  TestWorld& Desk() { return desk_; }

 private:
  TestWorld desk_;
  FakeObjectRef pnr_;
  std::vector<std::u16string> readings_;
  std::size_t reads_ = 0;
};

// What the arrays hold otherwise than the reference's, a line a difference. Empty when nothing differs.
std::string ArrayDifferences(const ElementArrays& scanned, const ReferenceScan& expected);

class ScanComparison {
 public:
  struct Outcome {
    // What the scanner does otherwise than its reference: in the count, in the arrays, in the count that is kept or in
    // the number of reads. Empty when nothing differs.
    std::string difference;
    std::size_t stored;  // elements in the arrays
  };
  Outcome Run(const DisplayKind& kind, const std::vector<std::u16string>& readings);

 private:
  DisplayedPnr pnr_;
};

}  // namespace wendrill::testing
