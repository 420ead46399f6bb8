// Splits long free text into remark elements, each short enough for a host entry.
#pragma once

#include <string>
#include <vector>

#include "common/text.h"

namespace wendrill {

// The remark elements of a text, in order; at least one. Each element begins with "RM", or with "RM*" for a
// confidential remark, and ends with the associations of the whole text.
//
// First, these are removed from the text: a leading "RM " or "RM", a "*" after it, and the associations at the end
// ("/P1", "/S2": "P" or "S" and a number). The rest is split into parts of at most 123 characters, each at the last
// possible blank, which is dropped. A word of more than 123 characters is split. Raises 6 for more than 32,767
// elements.
std::vector<std::u16string> RemarkElements(TextView text);

}  // namespace wendrill
