// The parts of a display's layout that no member of the library determines. These parts are this project's own
// interpretation of the host's displays, and only in these parts may the displays of another host differ.
#pragma once

#include "common/text.h"
#include "derive/required_layout.h"

namespace wendrill::simulator {

// --- Header --------------------------------------------------------------------------------------------------------
//
//          1         2         3         4         5         6
// 123456789012345678901234567890123456789012345678901234567890123
// RP/PARXX0100/PARXX0100            AM/SU  12JUN08/0930Z   ABC123

inline constexpr ColumnRange kOfficeColumns = {4, 9};
inline constexpr ColumnRange kHeaderDateColumns = {42, 7};
inline constexpr ColumnRange kLocatorColumns = {58, 6};

// The start of a status row above the header, such as "--- TST AXR ---".
inline constexpr TextView kStatusMark = u"---";

// The first of the hundred years that two digits express: 80 to 99 are 1980 to 1999, 00 to 79 are 2000 to 2079.
inline constexpr std::int32_t kFirstYearOfTwoDigits = 1980;

// --- Years ---------------------------------------------------------------------------------------------------------

// A day that is written with neither a year nor a weekday lies from kDaysBefore days before the date of the display to
// kDaysAfter days after it.
inline constexpr std::int32_t kDaysBefore = 60;
inline constexpr std::int32_t kDaysAfter = 305;

// The largest distance in years from the date of the display at which the year of a day with a weekday but without a
// year is searched. A day falls on the same weekday again after at most 28 years. 29 February may need up to 40 years,
// around a century year without leap day.
inline constexpr std::int32_t kMostYears = 40;

// --- Segments ------------------------------------------------------------------------------------------------------
//
// 4  AF7700 Y 10JUN 2 NCECDG FLWN
// 8  ARNK
// 11  CCR QC HK1 CDG 15JUN-18JUN ECMN/DO-ORY/RG-EUR 45.00 UNL DY/CF-H1234567890/P1-2
// 13  HHL QH HK1 NCE IN15JUN OUT18JUN EUR120.00 DLY A1KRAC-BED GRAND PLAGE HOTEL/CF-98765/P1

inline constexpr TextView kFlownMark = u"FLWN";
inline constexpr TextView kSurfaceKeyword = u"ARNK";
inline constexpr TextView kCheckInMark = u"IN";
inline constexpr TextView kCheckOutMark = u"OUT";
// The rate code of a hotel segment is the third word after the check-out date.
inline constexpr std::size_t kRateCodeWord = 3;
inline constexpr TextView kConfirmationMark = u"/CF-";
inline constexpr TextView kPassengersMark = u"/P";

// --- Keywords ------------------------------------------------------------------------------------------------------

inline constexpr Keyword kOwnKeywords[] = {
    {u"CCR", 14},  // car segments
    {u"HHL", 15},  // hotel segments
    {u"AB", 20},   // billing addresses
    {u"RC", 21},   // confidential remarks
    {u"FO", 30},   // original issues
    {u"AM", 38},   // mailing addresses
    {u"OP", 39},   // options
    {u"AP", 62},   // contacts
    {u"TK", 63},   // tickets
    {kSurfaceKeyword, kAllAirSegments},
};

}  // namespace wendrill::simulator
