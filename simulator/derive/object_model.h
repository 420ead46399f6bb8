// The objects of the PNR object model, and the name and DISPID of each of their members.
//
// The library reads the members of some objects by name only; the simulator chooses the DISPIDs of these members.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace wendrill::simulator {

struct Property {
  std::u16string_view name;
  std::int32_t id;
};

struct ObjectType {
  std::u16string_view name;
  std::span<const Property> properties;
};

// The kind of an air segment. AllAirSegments contains the air segments of every kind. A segment of the kind Timed, Open
// or Flown is also in the collection of its kind; a segment of the kind Other is in no further collection. None: the
// element is not an air segment.
enum class SegmentKind { None, Timed, Open, Flown, Other };

// The name of a kind of air segment in a scenario.
struct SegmentKindName {
  std::u16string_view name;
  SegmentKind kind;
};
inline constexpr SegmentKindName kSegmentKindNames[] = {{u"timed", SegmentKind::Timed},
                                                        {u"open", SegmentKind::Open},
                                                        {u"flown", SegmentKind::Flown},
                                                        {u"other", SegmentKind::Other}};

// One collection of the PNR object. A scenario has one key for all air segments, but the PNR object has four
// collections of air segments. Three of the four contain only the air segments of one kind: `kind` is this kind. The
// fourth contains all air segments; for this collection and for collections of other elements, `kind` is None.
struct Collection {
  std::u16string_view name;
  std::int32_t id;
  const ObjectType& elementType;
  SegmentKind kind = SegmentKind::None;
};

inline constexpr Property kPlainProperties[] = {{u"Text", 1}, {u"ElementNo", 2}};
inline constexpr Property kNameProperties[] = {{u"Text", 1}, {u"ElementNo", 2}, {u"Initial", 3}, {u"LastName", 4}};
inline constexpr Property kAirProperties[] = {{u"Text", 1},        {u"ElementNo", 2},     {u"BoardPoint", 3},
                                              {u"OffPoint", 4},    {u"Class", 5},         {u"DepartureDate", 6},
                                              {u"ArrivalTime", 7}, {u"DepartureTime", 8}, {u"DayChange", 9}};
inline constexpr Property kCarProperties[] = {
    {u"Text", 1},         {u"ElementNo", 2}, {u"PickUpCity", 8},      {u"PickUpDate", 9},
    {u"DropOffDate", 10}, {u"CarType", 11},  {u"ConfirmationNo", 18}, {u"Passengers", 44}};
inline constexpr Property kHotelProperties[] = {{u"Text", 1},        {u"ElementNo", 2},    {u"City", 3},
                                                {u"CheckinDate", 4}, {u"CheckoutDate", 5}, {u"ConfirmationNo", 6},
                                                {u"RoomRateCode", 7}};
inline constexpr Property kCommissionProperties[] = {{u"Text", 1}, {u"ElementNo", 2}, {u"Percent", 3}};
inline constexpr Property kTicketProperties[] = {{u"Text", 1}, {u"ElementNo", 2}, {u"Action", 3}, {u"Date", 4}};
inline constexpr Property kRemarkProperties[] = {{u"Text", 1}, {u"ElementNo", 2}, {u"FreeFlow", 3}};
inline constexpr Property kHeaderProperties[] = {
    {u"Line", 1}, {u"ElementNo", 2}, {u"Text", 3}, {u"OfficeID", 4}, {u"RecordLocator", 6}};
inline constexpr Property kPassengerListProperties[] = {{u"Passengers", 1}};
inline constexpr Property kPassengerProperties[] = {{u"ElementNo", 2}};

inline constexpr ObjectType kPlainElement{u"element", kPlainProperties};
inline constexpr ObjectType kNameElement{u"name element", kNameProperties};
inline constexpr ObjectType kAirSegment{u"air segment", kAirProperties};
inline constexpr ObjectType kCarSegment{u"car segment", kCarProperties};
inline constexpr ObjectType kHotelSegment{u"hotel segment", kHotelProperties};
inline constexpr ObjectType kCommissionElement{u"commission element", kCommissionProperties};
inline constexpr ObjectType kTicketElement{u"ticket element", kTicketProperties};
inline constexpr ObjectType kRemarkElement{u"remark element", kRemarkProperties};
inline constexpr ObjectType kHeader{u"header", kHeaderProperties};
inline constexpr ObjectType kPassengerList{u"passenger association", kPassengerListProperties};
inline constexpr ObjectType kPassenger{u"passenger", kPassengerProperties};

inline constexpr Collection kCollections[] = {
    {u"Names", 2, kNameElement},
    {u"Elements", 3, kPlainElement},
    {u"AirSegments", 7, kAirSegment, SegmentKind::Timed},
    {u"FlownAirSegments", 9, kAirSegment, SegmentKind::Flown},
    {u"OpenAirSegments", 13, kAirSegment, SegmentKind::Open},
    {u"Cars", 14, kCarSegment},
    {u"Hotels", 15, kHotelSegment},
    {u"HTLElements", 17, kPlainElement},
    {u"BillingAddresses", 20, kPlainElement},
    {u"ConfidentialRemarks", 21, kPlainElement},
    {u"AutoTickets", 23, kPlainElement},
    {u"Commissions", 24, kCommissionElement},
    {u"FEElements", 26, kPlainElement},
    {u"OriginalIssues", 30, kPlainElement},
    {u"FormsOfPayment", 37, kPlainElement},
    {u"MailingAddresses", 38, kPlainElement},
    {u"Options", 39, kPlainElement},
    {u"Contacts", 62, kPlainElement},
    {u"Tickets", 63, kTicketElement},
    {u"MISElements", 64, kPlainElement},
    {u"Remarks", 65, kRemarkElement},
    {u"AllAirSegments", 78, kAirSegment},
    {u"INSElements", 93, kPlainElement},
};

// The key of [[pnr]] under which a scenario lists the air segments of every kind.
inline constexpr std::u16string_view kAirSegmentsKey = u"AirSegments";

// The DISPID of the collection that contains the air segments of every kind, in the order of the scenario or the
// display from which they were read.
inline constexpr std::int32_t kAllAirSegments = 78;

// The DISPID of a car's property Passengers, which returns the car's passenger association (kPassengerList).
inline constexpr std::int32_t kCarPassengers = 44;

// The members of the PNR object besides its collections.
inline constexpr Property kPnrValue{u"Value", 0};  // the default property
inline constexpr Property kPnrDisplayText{u"Text", 75};
inline constexpr Property kPnrHeader{u"Header", 76};
inline constexpr Property kPnrRetrieveCurrent{u"RetrieveCurrent", 80};  // takes the HostConnection; returns the status
inline constexpr Property kPnrRetrieve{u"Retrieve", 81};                // takes the HostConnection and the entry

// The members of every collection. Automation fixes two of the DISPIDs: 0 (DISPID_VALUE) for Item and -4
// (DISPID_NEWENUM) for the enumerator.
inline constexpr Property kCollectionItem{u"Item", 0};  // takes a position counted from 1
inline constexpr Property kCollectionCount{u"Count", 1};
inline constexpr Property kCollectionWalk{u"_NewEnum", -4};

}  // namespace wendrill::simulator
