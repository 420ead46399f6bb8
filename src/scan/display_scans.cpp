#include "scan/display_scans.h"

#include <algorithm>
#include <utility>

#include "common/error.h"
#include "common/failures.h"
#include "pnr/toolkit_pnr.h"

namespace wendrill {
namespace {

template <std::size_t... position>
std::array<ElementArrays, sizeof...(position)> ArraysOfAllKinds(std::index_sequence<position...> /*positions*/) {
  return {ElementArrays(kDisplayKinds[position]->keys)...};
}

std::size_t PositionOf(const DisplayKind& kind) {
  return static_cast<std::size_t>(std::ranges::find(kDisplayKinds, &kind) - kDisplayKinds.begin());
}

ScanCount Scan(const DisplayKind& kind, const ModuleState& state, ElementArrays& arrays) {
  if (const auto* ofPnr = std::get_if<ScanPnr>(&kind.scan)) {
    return (*ofPnr)(state, arrays);
  }
  const std::u16string display = DisplayText(state);
  return (*std::get_if<ScanText>(&kind.scan))(display, arrays);
}

}  // namespace

DisplayScans::DisplayScans(ModuleState& state)
    : state_(state), arrays_(ArraysOfAllKinds(std::make_index_sequence<kDisplayKinds.size()>())) {
  storedCounts_.fill(-1);
}

std::int16_t DisplayScans::Count(const DisplayKind& kind) {
  ElementArrays& arrays = arrays_.at(PositionOf(kind));
  arrays.Reset();
  const ScanCount count = WithNumber(
      kind.countNumber, [&] { return Scan(kind, state_, arrays); }, RunTimeError::Overflow);
  if (count && kind.storesCount) {
    storedCounts_.at(PositionOf(kind)) = *count;
  }
  return count.value_or(0);
}

const ElementArrays& DisplayScans::Arrays(const DisplayKind& kind) const {
  return arrays_.at(PositionOf(kind));
}

std::int16_t DisplayScans::StoredCount(const DisplayKind& kind) const {
  return storedCounts_.at(PositionOf(kind));
}

}  // namespace wendrill
