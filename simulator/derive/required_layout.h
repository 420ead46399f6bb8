// The parts of a PNR display's layout that the library's members determine: the columns that the members read, the
// markers for which they search, and the keywords for which they ask. Columns are counted from 1.
//
// own_layout.h contains the other parts of the layout, which are this project's own interpretation of displays.
#pragma once

#include "common/text.h"
#include "derive/object_model.h"

namespace wendrill::simulator {

// --- Header and creation line --------------------------------------------------------------------------------------
//
//          1         2         3         4         5         6
// 123456789012345678901234567890123456789012345678901234567890123
// RP/PARXX0100/PARXX0100            AM/SU  12JUN08/0930Z   ABC123
// PARXX0100/0001AA/12JUN08

inline constexpr TextView kHeaderMark = u"RP/";
inline constexpr ColumnRange kQueueOfficeColumns = {14, 9};
inline constexpr ColumnRange kUpdateTimeColumns = {50, 4};
inline constexpr std::size_t kCreationOfficeWidth = 9;

// --- Rows ----------------------------------------------------------------------------------------------------------
//
// 123456789
//  18 AP NCE 04 93 00 00 00-B      number in columns 1 to 4, the element's body after it
//        OFFICE                     a continuation
//   0.25SCHOOL TRIP NICE NM: 2     the size of a group; not a name
// * SP 11JUN/AMSU/PARXX0100-QRS456
//   * ES/G PARAG1 ALL

inline constexpr std::size_t kNumberColumns = 4;
inline constexpr TextView kContinuationIndent = u"    ";
inline constexpr TextView kGroupMark = u"NM:";
inline constexpr TextView kSplitPartyMark = u"* SP";
inline constexpr TextView kSecurityMark = u"  * ES/";
// Security entries are the items of an ES element. When the row that begins with kSecurityMark shows only one security
// entry, this row and at most four rows after it may each show one: five rows in all.
inline constexpr int kMostSecurityEntries = 5;
inline constexpr TextView kPassengerTypeMark = u"(";

// The keyword of an MCO document, which may follow the element number without a blank. The ticketing rows of the
// document are indented by at least three blanks.
inline constexpr TextView kGluedKeyword = u"MCO";
inline constexpr TextView kTicketingIndent = u"   ";

// --- Air segments --------------------------------------------------------------------------------------------------
//
// 4  AF 123 Y 15JUN 7 NCECDG HK2      0900 1030
// 6  AFOPEN Y 22JUN 7 LHRNCE

inline constexpr TextView kAirIndent = u"  ";  // the blanks between element number and airline
inline constexpr std::size_t kAirlineWidth = 2;
inline constexpr TextView kOpenMark = u"OPEN";

// --- Keywords ------------------------------------------------------------------------------------------------------

// How the rows of an element are joined into one text:
// - OneBlank: with one blank between two rows.
// - Padded: each row except the last is filled with blanks to 80 columns. The library's members that read such an
//   element find the end of a row by its column, or by four blanks in succession.
enum class Joining { OneBlank, Padded };

// A value in place of the DISPID of a collection: the element is only in the collection of all elements.
inline constexpr std::int32_t kInElementsAlone = 0;

struct Keyword {
  TextView word;
  std::int32_t collection;  // the collection's DISPID, or kInElementsAlone
  Joining joining = Joining::OneBlank;
};

inline constexpr Keyword kRequiredKeywords[] = {
    {u"HTL", 17},
    {u"FA", 23},
    {u"FM", 24},
    {u"FE", 26},
    {u"FP", 37, Joining::Padded},
    {u"MIS", 64, Joining::Padded},
    {u"RM", 65},
    {u"INS", 93},
    {u"ATX", kInElementsAlone},
    {u"FB", kInElementsAlone},
    {u"FS", kInElementsAlone},
    {u"FV", kInElementsAlone},
    {u"MCO", kInElementsAlone},
    {u"OSI", kInElementsAlone},
    {u"SSR", kInElementsAlone},
    {u"SUR", kInElementsAlone},
};

// The start of the keywords of manual tickets, which have a third letter: FHM, FHE, FHA.
inline constexpr TextView kManualTicketKeyword = u"FH";

// The words that may come between the keyword of a ticketing element and the content of the element.
inline constexpr TextView kPassengerWords[] = {u"PAX", u"INF"};

}  // namespace wendrill::simulator
