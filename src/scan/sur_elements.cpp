// Surface segments: "SUR/1030/A/PARIS/RUE DE RIVOLI/P2", from the PNR object's collection of all elements.
#include <utility>

#include "pnr/associations.h"
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

struct Record : ElementRecord<kKeys> {
  using ElementRecord::ElementRecord;
};

constexpr Member kElementCollection = Member::Id(3);
constexpr Member kText = Member::Name(u"Text");
constexpr Member kElementNo = Member::Name(u"ElementNo");

// The text of a surface segment, and its columns:
//          1         2         3
// 123456789012345678901234567890123
// SUR/1030/A/PARIS/RUE DE RIVOLI/P2
constexpr ColumnRange kKeyword = {1, 10};  // "SUR" may be anywhere within these columns
constexpr std::ptrdiff_t kEndWithPassenger = 4;
constexpr std::ptrdiff_t kPassengerWidth = 1;
// The fields of the text, separated by "/" and counted from 1:
constexpr std::int32_t kTime = 2;
constexpr std::int32_t kDirection = 3;
constexpr std::int32_t kAddress = 5;

bool IsSurface(TextView text) {
  return Contains(Columns(text, kKeyword), u"SUR");
}

// The passenger number: the last character of the text when the last four columns contain "/P"; else empty.
TextView PassengerAssociation(TextView text) {
  return Contains(LastColumns(text, kEndWithPassenger), kPassengerMark) ? LastColumns(text, kPassengerWidth)
                                                                        : TextView();
}

void Store(TextView text, TextView number, Record record) {
  const TextView direction = FieldOf(text, kDirection, u"/");
  record.Set(u"strKeyElement", text);
  record.Set(u"strKeyElementNr", number);
  record.Set(u"strKeyAddress", FieldOf(text, kAddress, u"/"));
  record.Set(u"strKeyPUTime", FieldOf(text, kTime, u"/"));
  record.SetFlag(u"blnKeyArrival", direction == u"A");
  record.SetFlag(u"blnKeyDeparture", direction == u"D");
  record.Set(u"strKeyPasAsso", PassengerAssociation(text));
}

// Finds the surface segments in the PNR object's collection of all elements, not in the display. Stores the first
// surface segment at index 1 and returns the number of surface segments. Raises 6 (overflow) for more than 32,767
// surface segments. Errors of the toolkit propagate.
std::int16_t Scan(const ModuleState& state, ElementArrays& arrays) {
  const auto walk = ToObject(ToolkitPnr(state)->Get(kElementCollection))->Walk();
  std::int16_t count = 0;
  while (const ObjectRef element = walk->Next()) {
    const std::u16string text = ToText(element->Get(kText), state.texts);
    if (IsSurface(text)) {
      count = Add16(count, 1);
      // The number is read from the toolkit before the arrays grow: Get may pump a message whose handler scans again
      // and resets the arrays.
      const std::u16string number = ToText(element->Get(kElementNo), state.texts);
      arrays.GrowTo(count);
      Store(text, number, Record(arrays, count));
    }
  }
  return count;
}

}  // namespace

constexpr DisplayKind kSURElements = {
    .count = CountOf::SURElements,
    .askedAs = u"SUR",
    .keys = kKeys,
    .scan = Scan,
    .countNumber = kNoNumber,
    .getterNumber = 2258,
};

}  // namespace wendrill
