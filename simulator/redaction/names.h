// Finds the words of passengers' names in a text.
#pragma once

#include <functional>
#include <vector>

#include "redaction/passages.h"

namespace wendrill::redaction {

// A function that receives one word.
using WordReader = std::function<void(TextView)>;

// Calls `found` with each word of a passenger's name, in the order of the text; `found` may receive a word more than
// once. The kind of a passage decides what is read:
// - Names and Document: the names, without the months of dates with a year (12JAN01).
// - Other, FreeText and Contact: only names that end with a title, without the months of any dates.
// - Host: nothing.
//
// In all passages, leaves out words of fewer than three letters, titles and passenger types. REQUIRES: `passages` are
// the passages of `text`.
void ForEachNameIn(TextView text, const std::vector<Passage>& passages, const WordReader& found);

}  // namespace wendrill::redaction
