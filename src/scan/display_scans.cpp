#include "scan/display_scans.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "common/error.h"
#include "common/failures.h"
#include "pnr/index.h"

namespace wendrill {
namespace {

template <std::size_t... position>
std::array<ElementArrays, sizeof...(position)> ArraysOfAllKinds(std::index_sequence<position...> /*positions*/) {
  return {ElementArrays(kDisplayKinds[position]->keys)...};
}

std::size_t PositionOf(const DisplayKind& kind) {
  return static_cast<std::size_t>(std::ranges::find(kDisplayKinds, &kind) - kDisplayKinds.begin());
}

// Runs the scan of a kind and returns its count. Lack of memory always propagates unchanged. The effect of any other
// failure depends on the kind's countNumber:
//   - kNoNumber: the failure propagates unchanged.
//   - kCountsAsNone: returns 0, even after 6 (overflow).
//   - Any other number: raises this number, but 6 (overflow) propagates unchanged.
std::int16_t ScanReplacingFailure(const DisplayKind& kind, const ModuleState& state, ElementArrays& arrays) {
  const auto scan = [&] {
    DisplayReader display(state);
    return RunScan(kind, display, state, arrays);
  };
  if (kind.countNumber != kCountsAsNone) {
    return WithNumber(kind.countNumber, scan, RunTimeError::Overflow);
  }
  try {
    return scan();
  } catch (const Error&) {
    return 0;
  }
}

}  // namespace

std::int16_t RunScan(const DisplayKind& kind, DisplayReader& display, const ModuleState& state, ElementArrays& arrays) {
  if (const auto* ofPnr = std::get_if<ScanPnr>(&kind.scan)) {
    return (*ofPnr)(state, arrays);
  }
  if (const auto* again = std::get_if<ScanAgain>(&kind.scan)) {
    return (*again)(display, arrays);
  }
  display.Read();
  return (*std::get_if<ScanText>(&kind.scan))(display.Text(), arrays);
}

DisplayScans::DisplayScans(ModuleState& state)
    : state_(state), arrays_(ArraysOfAllKinds(std::make_index_sequence<kDisplayKinds.size()>())) {}

std::int16_t DisplayScans::Count(const DisplayKind& kind) {
  ElementArrays& arrays = arrays_.at(PositionOf(kind));
  arrays.Reset();
  return ScanReplacingFailure(kind, state_, arrays);
}

const ElementArrays& DisplayScans::Arrays(const DisplayKind& kind) const {
  return arrays_.at(PositionOf(kind));
}

std::optional<std::int16_t> DisplayScans::PositionAskedFor(const DisplayKind& kind, ParamBag& bag) {
  const Index index(bag, IndexForm::ComparedFirstConvertedAsText);
  if (!index.IsBelow(Count(kind))) {
    return std::nullopt;
  }
  return index.Position();
}

ParamBagRef DisplayScans::Get(const DisplayKind& kind, const ParamBagRef& objParams) {
  ParamBag& bag = BagOf(objParams);
  const auto position = PositionAskedFor(kind, bag);
  if (!position) {
    RaiseOwn(kind.getterNumber);
  }
  // All values are read before the first value is stored in the bag: Set may pump a message whose handler scans again
  // and resets the arrays.
  std::vector<Value> values;
  values.reserve(kind.keys.size());
  for (std::size_t key = 0; key < kind.keys.size(); ++key) {
    values.push_back(Arrays(kind).At(key, *position));
  }
  for (std::size_t key = 0; key < kind.keys.size(); ++key) {
    bag.Set(kind.keys[key].name, values[key]);
  }
  return nullptr;
}

}  // namespace wendrill
