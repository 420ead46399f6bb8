// The host's own words as far as hiding needs them: which elements hold what, which words are no names. What tells the
// rows of a display apart is in derive/required_layout.h and derive/own_layout.h.
#pragma once

#include <algorithm>
#include <iterator>

#include "common/text.h"
#include "derive/own_layout.h"
#include "derive/required_layout.h"

namespace wendrill::redaction {

template <std::size_t Size>
bool IsIn(const TextView (&table)[Size], TextView word) {
  return std::ranges::find(table, word) != std::end(table);
}

// --- Names ---------------------------------------------------------------------------------------------------------

// Titles, passenger types, and what has a seat without being a person.
inline constexpr TextView kNoNames[] = {u"MR",  u"MRS", u"MS",  u"MISS", u"MSTR", u"DR",   u"PROF", u"REV",
                                        u"ADT", u"CHD", u"CNN", u"INF",  u"YTH",  u"EXST", u"CBBG", u"STCR"};

// A name that one of these ends is recognised wherever it is.
inline constexpr TextView kTitles[] = {u"MR", u"MRS", u"MS", u"MISS", u"MSTR", u"DR", u"PROF"};

inline constexpr TextView kInfant = u"INF";
inline constexpr TextView kInfantInFull = u"INFANT";

inline constexpr TextView kMonths[] = {u"JAN", u"FEB", u"MAR", u"APR", u"MAY", u"JUN",
                                       u"JUL", u"AUG", u"SEP", u"OCT", u"NOV", u"DEC"};

// --- Elements and entries --------------------------------------------------------------------------------------------

// Elements whose text is free, by keyword. One letter more is a category: RMH.
inline constexpr TextView kFreeTextKeywords[] = {u"RM", u"RC", u"OSI", u"AM", u"AB"};
inline constexpr TextView kFreeTextHeads[] = {u"RM", u"RC", u"OS", u"AM", u"AB"};  // of entries

// What no word of a message or a help screen begins with.
inline constexpr TextView kUnmistakableHeads[] = {u"RM", u"RC"};

// The airline, two characters, is no part of the free text.
inline constexpr TextView kOtherService = u"OSI";
inline constexpr TextView kOtherServiceHead = u"OS";

// AP, and with a letter more for its kind: APE, APM.
inline constexpr TextView kContact = u"AP";

inline constexpr TextView kService = u"SSR";
inline constexpr TextView kServiceHead = u"SR";
inline constexpr std::size_t kServiceCodeWidth = 4;

// Special services that are contacts: frequent traveller numbers, passports, visas, addresses, telephones.
inline constexpr TextView kContactServices[] = {u"FQTV", u"FQTR", u"FQTU", u"FQTS", u"DOCS", u"DOCO",
                                                u"DOCA", u"CTCM", u"CTCE", u"CTCR", u"PCTC"};
inline constexpr TextView kDocument = u"DOCS";

// The fields of DOCS: kind, issuing country, number, nationality, birth, gender, expiry, surname, first names. Where
// the first is left out, so is its slash.
inline constexpr int kFirstNameField = 7;  // counted from 1

inline constexpr TextView kNameHead = u"NM";
inline constexpr TextView kRetrievalHead = u"RT";

// Entries that are looked for where the terminal echoes them, and those that may be longer than a row.
inline constexpr TextView kEchoedHeads[] = {u"RM", u"RC", u"OS", u"AM", u"AB", u"AP", u"SR"};
inline constexpr TextView kEntryHeads[] = {u"RM", u"RC", u"OS", u"AM", u"AB", u"AP", u"SR", u"NM"};

// Entries whose text may hold the ";" that else separates the parts of a packed entry.
inline constexpr TextView kNeverPacked[] = {u"RC", u"OS", u"SR"};
inline constexpr char16_t kPartSeparator = u';';

// --- Words that stay where the host says them ----------------------------------------------------------------------

// Segments with provider, status and city after the keyword.
inline constexpr TextView kSegmentKeywords[] = {u"CCR", u"HHL", u"HTL", u"MIS", u"ATX"};
inline constexpr TextView kFormOfPayment = u"FP";
inline constexpr TextView kPayments[] = {u"CASH", u"CHECK"};

// What ends or continues a page.
inline constexpr TextView kPageWord = u"PAGE";
inline constexpr TextView kMoreWord = u"MORE";
inline constexpr TextView kEndOfDisplay = u"END OF DISPLAY";

// Whether elements have the keyword.
bool IsElementKeyword(TextView word);

// Whether the word is one of any of these tables.
bool IsHostWord(TextView word);

}  // namespace wendrill::redaction
