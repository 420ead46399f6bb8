// The parameter keys that the library reads from a bag, the kinds of elements that it knows, and the warnings for keys
// and kinds that a script misspells.
#pragma once

#include <string>
#include <string_view>

#include "common/value.h"

namespace wendrill::simulator {

// Whether `key` is one of the keys that the library reads from a parameter bag. Case-sensitive.
bool IsParameterKey(std::u16string_view key);

// The key whose value is a kind of element, such as "SSR".
inline constexpr std::u16string_view kKindKey = u"strKeyPNRElement";

// The warning for a key that the library never reads, with the nearest known key if there is one. Example:
//   nothing reads intKeyIndx; nearest: intKeyIndex
std::u16string UnreadKeyWarning(std::u16string_view key);

// The warning for a value of the key kKindKey that names an unknown kind of element, with the nearest known kind if
// there is one. Empty when the kind is known, and when the value is not a string.
std::u16string UnknownKindWarning(const Value& kind);

}  // namespace wendrill::simulator
