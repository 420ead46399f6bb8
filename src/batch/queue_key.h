// How keys of a queue are told apart: as the platform's collection does it, whatever the case of their letters.
#pragma once

#include <string>

#include "common/text.h"

namespace wendrill {

// The key in capitals: two keys are one exactly when these are equal. Knows the Latin, Greek and Cyrillic letters that
// have one capital each, accents included; other characters stand for themselves alone. Entries of a host are plain
// ASCII, but keys are the script's own words.
std::u16string FoldedKey(TextView key);

}  // namespace wendrill
