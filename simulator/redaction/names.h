// Finds the words of passengers' names in a text.
#pragma once

#include <functional>
#include <vector>

#include "redaction/passages.h"

namespace wendrill::redaction {

using WordReader = std::function<void(TextView)>;

// Calls `found` with each word of a name, in the order of the text; a word may be reported more than once. Words of
// fewer than three letters, titles and passenger types are left out.
void ForEachNameIn(TextView text, const std::vector<Passage>& passages, const WordReader& found);

}  // namespace wendrill::redaction
