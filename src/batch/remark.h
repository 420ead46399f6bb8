// Long free text as remark elements that the host's line holds.
#pragma once

#include <string>
#include <vector>

#include "common/text.h"

namespace wendrill {

// The remark elements of a text, in order, at least one. Each begins with "RM", "RM*" for a confidential remark, and
// ends with the text's associations.
//
// A leading "RM " or "RM", a leading "*" behind it and the associations at the end ("/P1", "/S2": "P" or "S" and a
// number) are taken off; what is left is cut into parts of at most 123 characters: at the last blank that leaves no
// more, which is dropped, or in the middle of a word that is longer.
std::vector<std::u16string> RemarkElements(TextView text);

}  // namespace wendrill
