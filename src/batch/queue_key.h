// Comparison of the keys of a queue: without case, as in the Collection object of the automation run time.
#pragma once

#include <string>

#include "common/text.h"

namespace wendrill {

// The key in capitals. Two keys are equal for the queue if and only if their folded keys are equal. The small letters
// in the table of queue_key.cpp become capitals: Latin, Greek and Cyrillic letters, including accented letters. Any
// other character stays unchanged. Host entries are plain ASCII, but keys may be words of the language in which the
// script is written.
std::u16string FoldedKey(TextView key);

}  // namespace wendrill
