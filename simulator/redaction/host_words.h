// The words of the host that redaction must know: the keywords of elements and the beginnings of entries, by their
// contents, and the words that are not names. The marks that distinguish the rows of a display are in
// derive/required_layout.h and derive/own_layout.h.
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

// Words in names that are not themselves names: titles, passenger types, and codes of things that have a seat (extra
// seat, cabin baggage, stretcher).
inline constexpr TextView kNoNames[] = {u"MR",  u"MRS", u"MS",  u"MISS", u"MSTR", u"DR",   u"PROF", u"REV",
                                        u"ADT", u"CHD", u"CNN", u"INF",  u"YTH",  u"EXST", u"CBBG", u"STCR"};

// Titles by which a name is recognised in any text: the name ends with one of them, as in "SMITH/JOHN MR".
inline constexpr TextView kTitles[] = {u"MR", u"MRS", u"MS", u"MISS", u"MSTR", u"DR", u"PROF"};

inline constexpr TextView kInfant = u"INF";
inline constexpr TextView kInfantInFull = u"INFANT";

inline constexpr TextView kMonths[] = {u"JAN", u"FEB", u"MAR", u"APR", u"MAY", u"JUN",
                                       u"JUL", u"AUG", u"SEP", u"OCT", u"NOV", u"DEC"};

// --- Elements and entries --------------------------------------------------------------------------------------------

// The keywords of elements with free text. A keyword may have one more letter, the category: RMH.
inline constexpr TextView kFreeTextKeywords[] = {u"RM", u"RC", u"OSI", u"AM", u"AB"};
inline constexpr TextView kFreeTextHeads[] = {u"RM", u"RC", u"OS", u"AM", u"AB"};  // the beginnings of entries

// Beginnings that are sure signs of an entry: no word of a message or of a help screen begins with them.
inline constexpr TextView kUnmistakableHeads[] = {u"RM", u"RC"};

// The keyword of other service information, and the beginning of the entry for it. The free text begins after the
// airline, which has two characters.
inline constexpr TextView kOtherService = u"OSI";
inline constexpr TextView kOtherServiceHead = u"OS";

// The keyword of contacts. One more letter may show the kind of contact: APE, APM.
inline constexpr TextView kContact = u"AP";

inline constexpr TextView kService = u"SSR";
inline constexpr TextView kServiceHead = u"SR";
inline constexpr std::size_t kServiceCodeWidth = 4;

// The codes of special services that are contacts: frequent traveller numbers, passports, visas, addresses, telephones.
inline constexpr TextView kContactServices[] = {u"FQTV", u"FQTR", u"FQTU", u"FQTS", u"DOCS", u"DOCO",
                                                u"DOCA", u"CTCM", u"CTCE", u"CTCR", u"PCTC"};
inline constexpr TextView kDocument = u"DOCS";

// The fields of DOCS: kind, issuing country, number, nationality, birth, gender, expiry, surname, first names. When the
// kind is left out, its slash is left out too, and the surname is field 7. So words are read as names from field 7 on.
// When the kind is present, field 7 is the expiry date, whose month is not taken for a name.
inline constexpr int kFirstNameField = 7;  // counted from 1

inline constexpr TextView kNameHead = u"NM";
inline constexpr TextView kRetrievalHead = u"RT";

// kEchoedHeads: the beginnings of entries that are recognised where the terminal echoes them. kEntryHeads: the
// beginnings of entries that may be longer than a row.
inline constexpr TextView kEchoedHeads[] = {u"RM", u"RC", u"OS", u"AM", u"AB", u"AP", u"SR"};
inline constexpr TextView kEntryHeads[] = {u"RM", u"RC", u"OS", u"AM", u"AB", u"AP", u"SR", u"NM"};

// The beginnings of entries whose text may contain ";". In other entries, ";" separates the parts of a packed entry.
inline constexpr TextView kNeverPacked[] = {u"RC", u"OS", u"SR"};
inline constexpr char16_t kPartSeparator = u';';

// --- Words that stay where the host says them ----------------------------------------------------------------------

// The keywords of segments that have provider, status and city after the keyword.
inline constexpr TextView kSegmentKeywords[] = {u"CCR", u"HHL", u"HTL", u"MIS", u"ATX"};
inline constexpr TextView kFormOfPayment = u"FP";
inline constexpr TextView kPayments[] = {u"CASH", u"CHECK"};

// Words that the host writes at the end of a page of a display.
inline constexpr TextView kPageWord = u"PAGE";
inline constexpr TextView kMoreWord = u"MORE";
inline constexpr TextView kEndOfDisplay = u"END OF DISPLAY";

// Whether the word is a keyword of an element.
bool IsElementKeyword(TextView word);

// Whether the word is one of the host's words, which are never chosen as pseudonyms: keywords, titles, passenger types,
// months, codes of contact services, forms of payment, marks of air segments and of pages.
bool IsHostWord(TextView word);

}  // namespace wendrill::redaction
