// How the keys of a queue are compared: without case, as in the automation run time's Collection object.
#pragma once

#include <string>

#include "common/text.h"

namespace wendrill {

// The key in capitals: two keys are the same if and only if their folded keys are equal. Folds the Latin, Greek and
// Cyrillic letters that have a single capital letter, accented letters included; other characters stay unchanged. Host
// entries are plain ASCII, but keys may be words of the script's own language.
std::u16string FoldedKey(TextView key);

}  // namespace wendrill
