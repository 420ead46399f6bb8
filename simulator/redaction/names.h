// Finds the words that are names.
#pragma once

#include <functional>
#include <vector>

#include "redaction/passages.h"

namespace wendrill::redaction {

using WordReader = std::function<void(TextView)>;

// Calls `found` with each word of a name, in the order of the text; some more than once. Words under three letters and
// titles are left out.
void ForEachNameIn(TextView text, const std::vector<Passage>& passages, const WordReader& found);

}  // namespace wendrill::redaction
