// The parts of segments and of the elements that have properties of their own, cut out of the text after the number or
// after the keyword. A part that the text does not show is empty.
#pragma once

#include <optional>

#include "common/text.h"
#include "derive/derivation.h"
#include "derive/object_model.h"

namespace wendrill::simulator {

// AF 123 Y 15JUN 7 NCECDG HK2      0900 1030+1
struct AirSegmentParts {
  SegmentKind kind = SegmentKind::Timed;
  TextView bookingClass;
  TextView date;
  std::int32_t weekday = 0;  // 1 is Monday; 0 when none is shown
  TextView boardPoint;
  TextView offPoint;
  TextView departureTime;
  TextView arrivalTime;
  TextView dayChange;  // "0", "1", "-1"; empty without times
};

// nullopt for a text that has not the form of an air segment. `body` begins with the airline.
std::optional<AirSegmentParts> AirSegmentIn(TextView body);

// QC HK1 CDG 15JUN-18JUN ECMN/BS-12345675/...
struct CarParts {
  TextView city;
  TextView pickUp;
  TextView dropOff;
  TextView type;
};
CarParts CarPartsIn(TextView body);

// QH HK1 NCE IN15JUN OUT18JUN EUR120.00 DLY A1KRAC-BED GRAND PLAGE HOTEL/...
struct HotelParts {
  TextView city;
  TextView checkIn;
  TextView checkOut;
  TextView rateCode;
};
HotelParts HotelPartsIn(TextView body);

// What follows the mark of a confirmation number, up to the next "/".
TextView ConfirmationIn(TextView body);

// The numbers after the first passenger mark that has one: "/P1-3,5" are 1, 2, 3 and 5.
PassengerNumbers PassengersIn(TextView body);

// OK12JUN/PARXX0100
struct TicketParts {
  TextView action;
  TextView date;
};
TicketParts TicketPartsIn(TextView body);

// The 5 of "*M*5" and of "PAX 5/S3".
TextView PercentIn(TextView body);

}  // namespace wendrill::simulator
