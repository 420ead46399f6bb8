#include "scan/display_scans.h"

#include <span>

#include "common/error.h"
#include "common/failures.h"
#include "pnr/toolkit_pnr.h"
#include "scan/scanners.h"

namespace wendrill {
namespace {

using Scan = ScanCount (*)(const ModuleState& state, ElementArrays& arrays);

// Adapts a scanner that reads the display text once.
template <ScanCount (*ScanDisplay)(TextView, ElementArrays&)>
ScanCount ReadingOnce(const ModuleState& state, ElementArrays& arrays) {
  const std::u16string display = DisplayText(state);
  return ScanDisplay(display, arrays);
}

struct KindRow {
  ScannedKind kind;
  std::span<const ArrayKey> keys;
  Scan scan;
  std::int32_t trap;  // the number raised for a failure other than overflow
  bool storesCount;   // whether the count of a completed scan is kept (the library itself does not read it)
};

constexpr std::array<KindRow, kScannedKinds> kKinds = {{
    {ScannedKind::SpecialServiceElements, kSpecialServiceKeys, ReadingOnce<ScanSpecialServiceElements>, 2035, true},
    {ScannedKind::OtherServiceElements, kOtherServiceKeys, ScanOtherServiceElements, 2030, true},
    // Intentional: the special service scanner's number, as published.
    {ScannedKind::SecurityElements, kSecurityKeys, ReadingOnce<ScanSecurityElements>, 2035, true},
    {ScannedKind::ManualTktElements, kManualTktKeys, ReadingOnce<ScanManualTktElements>, 2020, true},
    {ScannedKind::MiscTktInfoElements, kMiscTktInfoKeys, ReadingOnce<ScanMiscTktInfoElements>, 2025, true},
    {ScannedKind::SURElements, kSURKeys, ScanSURElements, kNoNumber, false},
    {ScannedKind::SPElements, kSPKeys, ScanSPElements, 2056, false},
    {ScannedKind::ATXSegments, kATXKeys, ReadingOnce<ScanATXSegments>, kNoNumber, false},
    {ScannedKind::MCOElements, kMCOKeys, ReadingOnce<ScanMCOElements>, 2057, false},
}};

constexpr bool EveryKindInItsPlace() {
  for (std::size_t i = 0; i < kKinds.size(); ++i) {
    if (static_cast<std::size_t>(kKinds[i].kind) != i) {
      return false;
    }
  }
  return true;
}
static_assert(EveryKindInItsPlace());

template <std::size_t... kind>
std::array<ElementArrays, sizeof...(kind)> ArraysOfAllKinds(std::index_sequence<kind...> /*kinds*/) {
  return {ElementArrays(kKinds[kind].keys)...};
}

}  // namespace

DisplayScans::DisplayScans(ModuleState& state)
    : state_(state), arrays_(ArraysOfAllKinds(std::make_index_sequence<kScannedKinds>())) {
  storedCounts_.fill(-1);
}

std::int16_t DisplayScans::Count(ScannedKind kind) {
  const KindRow& row = kKinds[static_cast<std::size_t>(kind)];
  ElementArrays& arrays = arrays_[static_cast<std::size_t>(kind)];
  arrays.Reset();
  const ScanCount count = WithNumber(
      row.trap, [&] { return row.scan(state_, arrays); }, RunTimeError::Overflow);
  if (count && row.storesCount) {
    storedCounts_[static_cast<std::size_t>(kind)] = *count;
  }
  return count.value_or(0);
}

}  // namespace wendrill
