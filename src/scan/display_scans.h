// The element kinds that are read from the PNR's display text, where the toolkit models none.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "common/module_state.h"
#include "scan/element_arrays.h"

namespace wendrill {

// The count properties, by their published names without "Count".
enum class ScannedKind : std::size_t {
  SpecialServiceElements,
  OtherServiceElements,
  SecurityElements,
  ManualTktElements,
  MiscTktInfoElements,
  SURElements,
  SPElements,
  ATXSegments,
  MCOElements,
};
inline constexpr std::size_t kScannedKinds = 9;

// One CPNR's scans: the arrays of every kind and the counts of the last completed scans.
class DisplayScans {
 public:
  // `state` must outlive this object.
  explicit DisplayScans(ModuleState& state);

  // Scans the whole display anew, replaces the kind's arrays and returns the number of elements found; 0 when there are
  // none, and for some kinds when the display ends in the prompt. Nothing is kept between calls: N elements read one by
  // one cost N + 1 scans, and each result shows the PNR as it is displayed at that moment.
  //
  // Raises the kind's own number (2020 to 2057) for any failure but overflow, which stays 6; surface and ATX segments
  // hand every error on as it came. 6 also when the display has more than 32,767 lines or the kind more elements. After
  // an error the arrays hold what was stored before it.
  std::int16_t Count(ScannedKind kind);

  // What the last scan of the kind stored; without arrays before the first.
  const ElementArrays& Arrays(ScannedKind kind) const { return arrays_[static_cast<std::size_t>(kind)]; }

  // The count of the kind's last completed scan; -1 before the first, and always for surface segments, split-party
  // entries, ATX segments and MCO documents, which keep none.
  std::int16_t StoredCount(ScannedKind kind) const { return storedCounts_[static_cast<std::size_t>(kind)]; }

 private:
  ModuleState& state_;
  std::array<ElementArrays, kScannedKinds> arrays_;
  std::array<std::int16_t, kScannedKinds> storedCounts_;
};

}  // namespace wendrill
