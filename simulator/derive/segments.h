// Finds parts of the texts of elements (air segments, cars, hotels, tickets and others). The parts become properties of
// the elements in the PNR object model. `body` is the element's text after the keyword; an air segment has no keyword,
// and its `body` is the text after the element number. A part that the text does not show is empty.
#pragma once

#include <optional>

#include "common/text.h"
#include "derive/derivation.h"
#include "derive/object_model.h"

namespace wendrill::simulator {

// The parts of an air segment: AF 123 Y 15JUN 7 NCECDG HK2      0900 1030+1
struct AirSegmentParts {
  SegmentKind kind = SegmentKind::Timed;
  TextView bookingClass;
  TextView date;
  std::int32_t weekday = 0;  // 1 is Monday; 0 when the text shows no weekday
  TextView boardPoint;
  TextView offPoint;
  TextView departureTime;
  TextView arrivalTime;
  TextView dayChange;  // arrival date minus departure date in days: "0", "1", "-1"; empty without times
};

// The parts of an air segment; nullopt when the text does not match the pattern of an air segment. `body` begins with
// the airline.
std::optional<AirSegmentParts> AirSegmentIn(TextView body);

// The parts of a car segment: QC HK1 CDG 15JUN-18JUN ECMN/BS-12345675/... All parts are empty when the text does not
// show a pick-up date and a drop-off date joined by "-".
struct CarParts {
  TextView city;
  TextView pickUp;
  TextView dropOff;
  TextView type;
};
CarParts CarPartsIn(TextView body);

// The parts of a hotel segment: QH HK1 NCE IN15JUN OUT18JUN EUR120.00 DLY A1KRAC-BED GRAND PLAGE HOTEL/... All parts
// are empty without a check-in date. The check-out date and the rate code are empty unless the word after the check-in
// date begins with "OUT".
struct HotelParts {
  TextView city;
  TextView checkIn;
  TextView checkOut;
  TextView rateCode;
};
HotelParts HotelPartsIn(TextView body);

// The confirmation number of a car or hotel: the text between "/CF-" and the next "/", trimmed. Empty when the text has
// no "/CF-".
TextView ConfirmationIn(TextView body);

// The passenger numbers after the first "/P" that a digit follows: 1, 2, 3 and 5 for "/P1-3,5". Returns at most 999
// numbers, the first ones. Empty when there is no such "/P".
PassengerNumbers PassengersIn(TextView body);

// The parts of a ticket element: for OK12JUN/PARXX0100, the action is OK and the date is 12JUN.
struct TicketParts {
  TextView action;
  TextView date;
};
TicketParts TicketPartsIn(TextView body);

// The percentage of a commission element: "5" of "*M*5" and of "PAX 5/S3". Empty when neither a digit nor a decimal
// point follows the words PAX and INF and a part such as "*M*", all of which may be missing.
TextView PercentIn(TextView body);

}  // namespace wendrill::simulator
