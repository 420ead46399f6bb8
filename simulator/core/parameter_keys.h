// The keys under which the library looks for parameters in a bag, and the kinds of elements that it knows: what a
// script misspells in them is told.
#pragma once

#include <string>
#include <string_view>

#include "common/value.h"

namespace wendrill::simulator {

// Whether the library reads or stores this key in some bag. Keys are compared exactly.
bool IsParameterKey(std::u16string_view key);

// The key that holds a kind of element.
inline constexpr std::u16string_view kKindKey = u"strKeyPNRElement";

// The warning for a key that nothing reads: nothing reads intKeyIndx; nearest: intKeyIndex
std::u16string UnreadKeyWarning(std::u16string_view key);

// The warning for the value of kKindKey when it is no kind; empty when it is one, or not a string.
std::u16string UnknownKindWarning(const Value& kind);

}  // namespace wendrill::simulator
