// The words of the host that redaction must know: the keywords of elements, the beginnings of entries, and the words
// that appear in names but are not names. derive/required_layout.h and derive/own_layout.h contain the marks that
// distinguish the rows of a display.
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

// Words that appear in names but are not names: titles, passenger types, and codes of things that have a seat (extra
// seat, cabin baggage, stretcher).
inline constexpr TextView kNoNames[] = {u"MR",  u"MRS", u"MS",  u"MISS", u"MSTR", u"DR",   u"PROF", u"REV",
                                        u"ADT", u"CHD", u"CNN", u"INF",  u"YTH",  u"EXST", u"CBBG", u"STCR"};

// Titles by which a name is recognised in any text: the name ends with a title, as in "SMITH/JOHN MR".
inline constexpr TextView kTitles[] = {u"MR", u"MRS", u"MS", u"MISS", u"MSTR", u"DR", u"PROF"};

// kInfant: the passenger type of an infant, which may be directly before a surname ("INFDOE"). kInfantInFull: the word
// INFANT, which begins with INF but contains no surname.
inline constexpr TextView kInfant = u"INF";
inline constexpr TextView kInfantInFull = u"INFANT";

inline constexpr TextView kMonths[] = {u"JAN", u"FEB", u"MAR", u"APR", u"MAY", u"JUN",
                                       u"JUL", u"AUG", u"SEP", u"OCT", u"NOV", u"DEC"};

// --- Elements and entries --------------------------------------------------------------------------------------------

// kFreeTextKeywords: the keywords of elements with free text. A keyword may have one more letter, the category: RMH.
// kFreeTextHeads: the beginnings of the entries that add these elements.
inline constexpr TextView kFreeTextKeywords[] = {u"RM", u"RC", u"OSI", u"AM", u"AB"};
inline constexpr TextView kFreeTextHeads[] = {u"RM", u"RC", u"OS", u"AM", u"AB"};

// Beginnings by which an entry is recognised whatever character follows the beginning, because no word of a message or
// of a help screen begins with RM or RC.
inline constexpr TextView kUnmistakableHeads[] = {u"RM", u"RC"};

// kOtherService: the keyword of other service information. kOtherServiceHead: the beginning of the entry that adds
// other service information. In the element and in the entry, the free text begins after the airline code of two
// characters. Without an airline code, the free text begins after the keyword or after the beginning of the entry.
inline constexpr TextView kOtherService = u"OSI";
inline constexpr TextView kOtherServiceHead = u"OS";

// The keyword of contacts. One more letter may show the kind of contact: APE, APM.
inline constexpr TextView kContact = u"AP";

// The keyword of special services, the beginning of the entry that adds a special service, and the number of characters
// of a service code such as FQTV.
inline constexpr TextView kService = u"SSR";
inline constexpr TextView kServiceHead = u"SR";
inline constexpr std::size_t kServiceCodeWidth = 4;

// The codes of special services that are contacts: frequent traveller numbers, passports, visas, addresses, telephones.
inline constexpr TextView kContactServices[] = {u"FQTV", u"FQTR", u"FQTU", u"FQTS", u"DOCS", u"DOCO",
                                                u"DOCA", u"CTCM", u"CTCE", u"CTCR", u"PCTC"};
// The service code of a passport or another travel document.
inline constexpr TextView kDocument = u"DOCS";

// The number (counted from 1) of the first field of DOCS whose words are read as names. The fields of DOCS are: kind,
// issuing country, number, nationality, birth, gender, expiry, surname, first names. The surname is field 8, or field 7
// when the kind is left out together with its slash. When the kind is present, field 7 is the expiry date, such as
// 23AUG16; the month of such a date is not read as a name.
inline constexpr int kFirstNameField = 7;

// The beginnings of the entry that adds names and of the entry that retrieves a PNR.
inline constexpr TextView kNameHead = u"NM";
inline constexpr TextView kRetrievalHead = u"RT";

// kEchoedHeads: the beginnings by which an entry is recognised where the terminal echoes the entry on the screen.
// kEntryHeads: the beginnings of entries that may be longer than a row. A text without line breaks and with such a
// beginning is read as a single line, unless it fills two or more whole rows and ends with a blank.
inline constexpr TextView kEchoedHeads[] = {u"RM", u"RC", u"OS", u"AM", u"AB", u"AP", u"SR"};
inline constexpr TextView kEntryHeads[] = {u"RM", u"RC", u"OS", u"AM", u"AB", u"AP", u"SR", u"NM"};

// kNeverPacked: a text that begins with one of these is a single entry, in which ";" is part of the text. In any other
// text, ";" (kPartSeparator) separates entries that are sent together, with one exception: after an entry that adds
// free text, such as RM, a ";" with a blank after it is part of the free text.
inline constexpr TextView kNeverPacked[] = {u"RC", u"OS", u"SR"};
inline constexpr char16_t kPartSeparator = u';';

// --- Words that stay where the host says them ----------------------------------------------------------------------

// The keywords of segments in which the code of a company, a status and a city follow the keyword.
inline constexpr TextView kSegmentKeywords[] = {u"CCR", u"HHL", u"HTL", u"MIS", u"ATX"};
// The keyword of the form of payment, and the forms of payment that are words of the host.
inline constexpr TextView kFormOfPayment = u"FP";
inline constexpr TextView kPayments[] = {u"CASH", u"CHECK"};

// Words that the host writes at the end of a page of a display.
inline constexpr TextView kPageWord = u"PAGE";
inline constexpr TextView kMoreWord = u"MORE";
inline constexpr TextView kEndOfDisplay = u"END OF DISPLAY";

// Whether the word is a keyword of an element.
bool IsElementKeyword(TextView word);

// Whether the word is one of the host's words: a keyword, a title, a passenger type, a month, the code of a contact
// service, a form of payment, a mark of air segments or of pages. False for a host word with a small letter. No host
// word is chosen as a pseudonym.
bool IsHostWord(TextView word);

}  // namespace wendrill::redaction
