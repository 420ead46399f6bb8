// Compares a scanner with its slow reference on one display.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "scan/display_scans.h"
#include "support/test_world.h"

namespace wendrill::testing {

struct ReferenceScan;

// A simulated desktop with a PNR object that has only a display and an element collection, from which surface segments
// are read. The collection has an element for each line of the display: the element number precedes the first "|", the
// text follows it.
class DisplayedPnr {
 public:
  DisplayedPnr();

  // Sets the texts that successive reads of the display return. After the last text, each read returns the last text.
  void Show(std::vector<std::u16string> readings);
  void Show(std::u16string_view display) { Show(std::vector<std::u16string>{std::u16string(display)}); }

  // The number of reads of the display since the last call of Show.
  std::size_t Reads() const { return reads_; }

  ModuleState& Module() { return desk_.module; }
  TestWorld& Desk() { return desk_; }

 private:
  TestWorld desk_;
  FakeObjectRef pnr_;
  std::vector<std::u16string> readings_;
  std::size_t reads_ = 0;
};

// The differences between the scanner's arrays and those of the reference, one line for each; empty when the arrays are
// equal.
std::string ArrayDifferences(const ElementArrays& scanned, const ReferenceScan& expected);

class ScanComparison {
 public:
  struct Outcome {
    // The differences between the scanner and its reference, one line for each: in the count, in the error number, in
    // the arrays and, except for surface segments, in the number of reads. Empty when nothing differs.
    std::string difference;
    std::size_t stored;  // the number of elements in the reference's arrays
  };
  Outcome Run(const DisplayKind& kind, const std::vector<std::u16string>& readings);

 private:
  DisplayedPnr pnr_;
};

}  // namespace wendrill::testing
