// Surface segments: "SUR/1030/A/PARIS/RUE DE RIVOLI/P2", from the PNR object's element collection.
#include <utility>

#include "pnr/toolkit_pnr.h"
#include "scan/display_kinds.h"
#include "scan/display_walk.h"

namespace wendrill {
namespace {

constexpr std::array kKeys = {
    ArrayKey{u"strKeyElement"},
    ArrayKey{u"strKeyElementNr"},
    ArrayKey{u"strKeyAddress"},
    ArrayKey{u"strKeyPUTime"},
    ArrayKey{u"blnKeyArrival", ArrayType::Flag},
    ArrayKey{u"blnKeyDeparture", ArrayType::Flag},
    ArrayKey{u"strKeyPasAsso"},
};

using Record = ElementRecord<kKeys>;

constexpr Member kElementCollection = Member::Id(3);
constexpr Member kText = Member::Name(u"Text");
constexpr Member kElementNo = Member::Name(u"ElementNo");

bool IsSurface(TextView text) {
  return Contains(FirstColumns(text, 10), u"SUR");
}

// The passenger: the last character of a text that ends in a passenger part; else empty.
TextView PassengerAssociation(TextView text) {
  return Contains(LastColumns(text, 4), u"/P") ? LastColumns(text, 1) : TextView();
}

void Store(TextView text, TextView number, Record record) {
  const TextView direction = FieldOf(text, 3, u"/");
  record.Set(u"strKeyElement", text);
  record.Set(u"strKeyElementNr", number);
  record.Set(u"strKeyAddress", FieldOf(text, 5, u"/"));
  record.Set(u"strKeyPUTime", FieldOf(text, 2, u"/"));
  record.SetFlag(u"blnKeyArrival", direction == u"A");
  record.SetFlag(u"blnKeyDeparture", direction == u"D");
  record.Set(u"strKeyPasAsso", PassengerAssociation(text));
}

// Reads the PNR object's element collection instead of the display.
ScanCount Scan(const ModuleState& state, ElementArrays& arrays) {
  const auto walk = ToObject(ToolkitPnr(state)->Get(kElementCollection))->Walk();
  std::int16_t count = 0;
  while (const ObjectRef element = walk->Next()) {
    const std::u16string text = ToText(element->Get(kText), state.texts);
    if (IsSurface(text)) {
      count = Add16(count, 1);
      // Read before the arrays grow: the call may pump a message whose handler scans again and resets the arrays.
      const std::u16string number = ToText(element->Get(kElementNo), state.texts);
      arrays.GrowTo(count);
      Store(text, number, Record(arrays, count));
    }
  }
  return count;
}

}  // namespace

constexpr DisplayKind kSURElements = {
    .name = "SURElements",
    .askedAs = u"SUR",
    .keys = kKeys,
    .scan = Scan,
    .countNumber = kNoNumber,
    .getterNumber = 2258,
    .storesCount = false,
};

}  // namespace wendrill
