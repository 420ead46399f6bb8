// Air segments: five accessors, which read four collections.
#include <algorithm>

#include "common/text.h"
#include "pnr/accessor_tables.h"

namespace wendrill {
namespace {

// The columns of a segment whose element number has one digit. When the number has two digits, all fields except the
// confirmation number are one column further right. Intentional: for a number of three digits, the fields are read one
// column further right too, not two columns.
//          1         2         3         4         5         6
// 12345678901234567890123456789012345678901234567890123456789012
// 2  AF 123 Y 15JUN 3 NCECDG GK1       0915 1050      AB12CD/XYZ
constexpr ColumnRange kAirlineColumns = {4, 2};
constexpr std::ptrdiff_t kFlightNumberColumn = 6;
constexpr ColumnRange kStatusColumns = {27, 5};
constexpr ColumnRange kConfirmationColumns = {53, 6};

// An open segment has the mark "OPEN" instead of a flight number, in columns 6 to 9 or 7 to 10. The mark is read in
// these columns whatever the number of digits of the element number:
// 1234567890123
// 3  AFOPEN Y
// 3  AF OPEN Y
constexpr TextView kOpenMark = u"OPEN";
constexpr ColumnRange kOpenMarkColumns[] = {{6, 4}, {7, 4}};

constexpr TextView kConfirmedStatus = u"GK";

std::ptrdiff_t Shift(Element& segment) {
  return segment.Text(Member::Name(u"ElementNo")).size() >= 2 ? 1 : 0;
}

TextView StatusOf(Element& segment) {
  return Trimmed(Columns(segment.Text(), Shifted(kStatusColumns, Shift(segment))));
}

bool IsOpen(Element& segment) {
  return std::ranges::any_of(kOpenMarkColumns,
                             [&](ColumnRange range) { return Columns(segment.Text(), range) == kOpenMark; });
}

bool IsTimed(const Element& segment) {
  return segment.Is(SegmentType::Timed);
}

std::optional<Value> Airline(Element& segment) {
  return Columns(segment.Text(), Shifted(kAirlineColumns, Shift(segment)));
}

std::optional<Value> Status(Element& segment) {
  return StatusOf(segment);
}

std::optional<Value> ConfirmationNumber(Element& segment) {
  const bool confirmed = StartsWith(StatusOf(segment), kConfirmedStatus);
  return confirmed ? Trimmed(Columns(segment.Text(), kConfirmationColumns)) : TextView();
}

std::optional<Value> FlightNumber(Element& segment) {
  const TextView behindAirline = FromColumn(segment.Text(), kFlightNumberColumn + Shift(segment));
  return FieldOf(Trimmed(behindAirline), 1, u" ");
}

std::optional<Value> OpenMark(Element& segment) {
  return IsOpen(segment);
}

std::optional<Value> FlightNumberUnlessOpen(Element& segment) {
  return IsOpen(segment) ? std::nullopt : FlightNumber(segment);
}

std::optional<Value> TextOfTimed(Element& segment, std::u16string_view property) {
  return IsTimed(segment) ? std::optional<Value>(segment.Text(Member::Name(property))) : std::nullopt;
}

std::optional<Value> ArrivalTimeOfTimed(Element& segment) {
  return TextOfTimed(segment, u"ArrivalTime");
}

std::optional<Value> DepartureTimeOfTimed(Element& segment) {
  return TextOfTimed(segment, u"DepartureTime");
}

std::optional<Value> DayChangeOfTimed(Element& segment) {
  return TextOfTimed(segment, u"DayChange");
}

// The keys of the five accessors, each with the source of its value.
constexpr Key kSegment = {u"strKeySegment", AsText(u"Text")};
constexpr Key kSegmentNr = {u"strKeySegmentNr", AsText(u"ElementNo")};
constexpr Key kAirline = {u"strKeyAirline", Airline};
constexpr Key kStatus = {u"strKeyStatus", Status};
constexpr Key kConfirmationNbr = {u"strKeyConfirmationNbr", ConfirmationNumber};
constexpr Key kDepCity = {u"strKeyDepCity", AsText(u"BoardPoint")};
constexpr Key kArrCity = {u"strKeyArrCity", AsText(u"OffPoint")};
constexpr Key kClass = {u"strKeyClass", AsText(u"Class")};
constexpr Key kDepDate = {u"strKeyDepDate", HostDate(u"DepartureDate")};
constexpr Key kNumber = {u"strKeyNumber", FlightNumber};
constexpr Key kNumberUnlessOpen = {u"strKeyNumber", FlightNumberUnlessOpen};
constexpr Key kOpenSeg = {u"blnKeyOpenSeg", OpenMark};
constexpr Key kDepTime = {u"strKeyDepTime", AsText(u"DepartureTime")};
constexpr Key kDepTimeOfTimed = {u"strKeyDepTime", DepartureTimeOfTimed};
constexpr Key kArrTime = {u"strKeyArrTime", AsText(u"ArrivalTime")};
constexpr Key kArrTimeOfTimed = {u"strKeyArrTime", ArrivalTimeOfTimed};
constexpr Key kDayChange = {u"strKeyDayChange", DayChangeOfTimed};

// The keys of each accessor, in the order in which they are stored.
constexpr Key kActive[] = {kSegment, kAirline,        kStatus,         kConfirmationNbr,  kSegmentNr,
                           kDepCity, kClass,          kOpenSeg,        kNumberUnlessOpen, kDepDate,
                           kArrCity, kArrTimeOfTimed, kDepTimeOfTimed, kDayChange};
constexpr Key kNeitherOpenNorFlown[] = {kSegment, kAirline, kSegmentNr, kDepCity, kClass,
                                        kDepDate, kArrCity, kArrTime,   kDepTime, kNumber};
constexpr Key kAll[] = {kSegment, kAirline, kSegmentNr,      kDepCity,        kClass,
                        kDepDate, kArrCity, kArrTimeOfTimed, kDepTimeOfTimed, kNumber};
constexpr Key kFlown[] = {kSegment, kSegmentNr, kAirline, kDepCity, kClass, kDepDate, kArrCity, kNumber};
constexpr Key kOpen[] = {kSegment, kSegmentNr, kClass, kAirline, kDepCity, kDepDate, kArrCity};

bool IsTimedOrUntimed(const AutomationObject& segment) {
  return segment.Is(SegmentType::Timed) || segment.Is(SegmentType::Untimed);
}

constexpr GetAccessor kAccessors[] = {
    {GetMember::ActiveAirSegments,
     {.collection = Collection::AllAirSegments,
      .bound = CountOf::ActiveAirSegments,
      .error = 2205,
      .keys = kActive,
      .indexForm = IndexForm::ConvertedFirst,
      .result = Result::CallersBag,
      .counted = IsTimedOrUntimed}},
    {GetMember::AirSegments,
     {.collection = Collection::AirSegments,
      .bound = CountOf::AirSegments,
      .error = 2207,
      .keys = kNeitherOpenNorFlown,
      .indexForm = IndexForm::ConvertedFirst}},
    {GetMember::AllAirSegments,
     {.collection = Collection::AllAirSegments,
      .bound = CountOf::AllAirSegments,
      .error = 2209,
      .keys = kAll,
      .indexForm = IndexForm::ConvertedFirst}},
    {GetMember::FlownAirSegments,
     {.collection = Collection::FlownAirSegments,
      .bound = CountOf::FlownAirSegments,
      .error = 2217,
      .keys = kFlown,
      .indexForm = IndexForm::ConvertedFirst}},
    {GetMember::OpenAirSegments,
     {.collection = Collection::OpenAirSegments,
      .bound = CountOf::OpenAirSegments,
      .error = 2225,
      .keys = kOpen,
      .indexForm = IndexForm::ConvertedFirst}},
};

}  // namespace

std::span<const GetAccessor> AirSegmentAccessors() {
  return kAccessors;
}

}  // namespace wendrill
