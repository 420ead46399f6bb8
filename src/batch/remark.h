// Splits long free text into remark elements, each short enough for a host entry.
#pragma once

#include <string>
#include <vector>

#include "common/text.h"

namespace wendrill {

// The remark elements of a text, in order; at least one. Each element begins with "RM", or with "RM*" for a
// confidential remark, and ends with the associations of the whole text.
//
// RemarkElements first removes three things from the text: a leading "RM " or "RM", a "*" that follows, and the
// associations at the end ("/P1", "/S2": "P" or "S" and a number). A text with this "*" is a confidential remark. The
// remaining text is split into parts of at most 123 characters. Each part ends at the last possible blank, which is
// dropped. A word of more than 123 characters is split. Raises 6 (overflow) for more than 32,767 elements.
std::vector<std::u16string> RemarkElements(TextView text);

}  // namespace wendrill
