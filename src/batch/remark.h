// Splits long free text into remark elements that fit into a host entry.
#pragma once

#include <string>
#include <vector>

#include "common/text.h"

namespace wendrill {

// The remark elements of a text, in order; at least one. Each element begins with "RM", or with "RM*" for a
// confidential remark, and ends with the text's associations.
//
// A leading "RM " or "RM", a "*" after it and the associations at the end ("/P1", "/S2": "P" or "S" and a number) are
// removed first. The rest is split into parts of at most 123 characters, each at the last possible blank, which is
// dropped. A word longer than a part is split in the middle.
std::vector<std::u16string> RemarkElements(TextView text);

}  // namespace wendrill
