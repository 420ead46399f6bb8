// Comparison of the keys of a queue: without case, as in the automation run time's Collection object.
#pragma once

#include <string>

#include "common/text.h"

namespace wendrill {

// The key in capitals. Two keys are equal for the queue if and only if their folded keys are equal. Converts the Latin,
// Greek and Cyrillic letters that have a single capital letter, including accented letters; other characters stay
// unchanged. Host entries are plain ASCII, but keys may be words of the language in which the script is written.
std::u16string FoldedKey(TextView key);

}  // namespace wendrill
