#include "pnr/records.h"

#include "common/error.h"

namespace wendrill {

ParamBagRef PnrRecords::Get(GetMember /*member*/, const ParamBagRef& /*objParams*/) {
  Raise(RunTimeError::MemberNotSupported);
}

std::int16_t PnrRecords::ValidatingAirlineElementsCount() {
  Raise(RunTimeError::MemberNotSupported);
}

std::int16_t PnrRecords::AirSequenceNrElementsCount() {
  Raise(RunTimeError::MemberNotSupported);
}

}  // namespace wendrill
