#include "pnr/records.h"

#include "common/error.h"
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
  if (member == GetMember::PNRHeader) {
    StorePnrHeader(state_, objParams);
    return nullptr;
  }
  const Accessor* accessor = CollectionAccessor(member);
  if (!accessor) {
    Raise(RunTimeError::InvalidCall);
  }
  return ReadElement(state_, *accessor, objParams);
}

}  // namespace wendrill
