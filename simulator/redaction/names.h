// Finds the words of passengers' names in a text.
#pragma once

#include <functional>
#include <vector>

#include "redaction/passages.h"

namespace wendrill::redaction {

// A function that receives one word.
using WordReader = std::function<void(TextView)>;

// Calls `found` with each word of a passenger's name, in the order of the text; `found` may receive a word more than
// once. Names are read in passages of the kinds Names and Document. In passages of the kinds Other, FreeText and
// Contact, only names that end with a title are read. Passages of the kind Host are not read. Leaves out words of fewer
// than three letters, titles, passenger types, and months of dates such as 12JAN01. REQUIRES: `passages` are the
// passages of `text`.
void ForEachNameIn(TextView text, const std::vector<Passage>& passages, const WordReader& found);

}  // namespace wendrill::redaction
