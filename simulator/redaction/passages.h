// Cuts a text into passages that are treated alike.
//
// A text is a screen or display (in lines, or in rows of 80 columns without breaks), or a single line: an entry, the
// text of an element or of a name, a message. Screens are recognised by their rows and need no header.
//
// In a display, the rows of an element are those of the derivation. Entries are recognised at the start of a single
// line whatever follows their first letters ("RMTEXT"), so a message in capitals that begins like one is taken for it;
// at the start of a row, where the terminal echoes them, and in quotation marks only where something else than a letter
// follows.
//
// Cost is linear in the text.
#pragma once

#include <vector>

#include "redaction/letters.h"

namespace wendrill::redaction {

enum class PassageKind {
  Other,
  Host,      // the host's own words
  Names,     // names of passengers
  FreeText,  // of a remark, an address, other service information
  Contact,   // its digits are somebody's
  Document,  // a contact whose later fields are names
};

struct Passage {
  PassageKind kind;
  std::size_t begin;  // index from 0
  std::size_t end;
  bool continues = false;  // the text of the passage before goes on here

  TextView In(TextView text) const { return text.substr(begin, end - begin); }
};

// A line, however long; lines with breaks; rows of 80 columns without.
enum class Layout { OneLine, Lines, Rows };
Layout LayoutOf(TextView text);

// All of the text, in order.
std::vector<Passage> PassagesOf(TextView text);

}  // namespace wendrill::redaction
