#include "pnr/records.h"

#include "pnr/accessor_tables.h"
#include "pnr/header.h"

namespace wendrill {
const Accessor* CollectionAccessor(GetMember member) {
  for (const auto family :
       {AirSegmentAccessors(), CarAccessors(), HotelAccessors(), NameAndRemarkAccessors(), FareAccessors()}) {
    for (const GetAccessor& row : family) {
      if (row.member == member) {
        return &row.accessor;
      }
    }
  }
  return nullptr;
}

ParamBagRef PnrRecords::Get(GetMember member, const ParamBagRef& objParams) {
  if (const Accessor* accessor = CollectionAccessor(member)) {
    return ReadElement(state_, *accessor, objParams);
  }
  StorePnrHeader(state_, objParams);
  return nullptr;
}

}  // namespace wendrill
