#include "pnr/header.h"

#include <string>

#include "common/error.h"
#include "common/text.h"
#include "pnr/toolkit_pnr.h"

namespace wendrill {
namespace {

// The header line of a PNR:
//          1         2         3         4         5         6
// 123456789012345678901234567890123456789012345678901234567890123
// RP/PARXX0100/PARXX0100            AM/SU  12JUN08/0930Z   ABC123
constexpr ColumnRange kQueueOffice = {14, 9};
constexpr ColumnRange kUpdateTime = {50, 4};

constexpr std::int32_t kEmptyHeader = 2227;

// Members of the header object. They are called by DISPID, because their names are not known.
constexpr Member kLine = Member::Id(1);
constexpr Member kElementNo = Member::Id(2);
constexpr Member kOfficeID = Member::Id(4);
constexpr Member kLocator = Member::Id(6);

// The cross-reference tag AXR as a status row of the display contains it: AXR between two blanks, then three hyphens.
// Only the first three lines of the display are searched for the tag.
constexpr TextView kAxrTag = u" AXR ---";
constexpr int kLinesWithAxrTag = 3;

bool HasAxrTag(TextView display) {
  DisplayLines lines(display);
  for (int n = 1; n <= kLinesWithAxrTag; ++n) {
    if (Contains(lines.Next(), kAxrTag)) {
      return true;
    }
  }
  return false;
}

}  // namespace

void StorePnrHeader(ModuleState& state, const ParamBagRef& objParams) {
  const ObjectRef header = HeaderObject(state);
  if (ToText(header->Get(Member::Name(u"Text")), state.texts).empty()) {
    RaiseOwn(kEmptyHeader);
  }
  const bool hasAxrTag = HasAxrTag(DisplayText(state));
  const std::u16string line = ToText(header->Get(kLine), state.texts);

  ParamBag& bag = BagOf(objParams);
  bag.Set(u"strKeyText", line);
  bag.Set(u"strKeyQueOfficeID", Columns(line, kQueueOffice));
  bag.Set(u"strKeyElementNr", ToInt32(header->Get(kElementNo)));
  bag.Set(u"strKeyOfficeID", ToText(header->Get(kOfficeID), state.texts));
  bag.Set(u"strKeyRecordLocator", ToText(header->Get(kLocator), state.texts));
  bag.Set(u"blnKeyAXRTag", hasAxrTag);
  bag.Set(u"strKeyUpdateTime", Columns(line, kUpdateTime));
}

}  // namespace wendrill
