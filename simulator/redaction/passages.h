// Divides a text into passages, each of one kind, so that each passage is redacted by the rules for its kind.
//
// A text is one of these:
//   - A screen or a display: lines with line breaks, or rows of 80 columns without line breaks. A screen needs no
//     header to be recognised; its rows are recognised one by one.
//   - A single line: an entry, the text of an element or of a name, a message.
//
// The rows of an element in a display are recognised by the rules of the derivation (simulator/derive). Entries are
// recognised in these places:
//   - At the start of a single line: by their first letters in capitals, whatever follows ("RMTEXT"). So a message in
//     capitals that begins with these letters is taken for an entry.
//   - At the start of a row, where the terminal echoes entries, and in quotation marks: by their first letters, if no
//     other letter than the X of hidden text follows. RM and RC are recognised whatever follows.
//
// Entries that begin with NM, SR or RT are recognised by conditions of their own (ReadNameEntry, ReadServiceEntry and
// ReadRetrievalByName in passages.cpp).
//
// The cost is linear in the length of the text.
#pragma once

#include <vector>

#include "redaction/letters.h"

namespace wendrill::redaction {

enum class PassageKind {
  Other,     // any text that is of no other kind, such as a message
  Host,      // words that the host writes itself, such as keywords; no name is hidden in them
  Names,     // names of passengers
  FreeText,  // the text of a remark, of an address, of other service information
  Contact,   // a contact, whose digits are personal data
  Document,  // the contents of a DOCS element: a contact in which the words from field 7 on are names
};

struct Passage {
  PassageKind kind;
  std::size_t begin;       // index of the first character, counted from 0
  std::size_t end;         // index after the last character
  bool continues = false;  // true: the passage continues the text of the previous passage of its kind

  TextView In(TextView text) const { return text.substr(begin, end - begin); }
};

// The layout of a text. OneLine: a single line of any length. Lines: lines with line breaks. Rows: rows of 80 columns
// without line breaks.
enum class Layout { OneLine, Lines, Rows };
Layout LayoutOf(TextView text);

// The passages of a text, in order. Together they contain all of the text.
std::vector<Passage> PassagesOf(TextView text);

}  // namespace wendrill::redaction
