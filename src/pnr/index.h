// The position that a caller asks for: "intKeyIndex", counted from 0.
#pragma once

#include <cstdint>
#include <string_view>

#include "common/param_bag.h"
#include "common/value.h"

namespace wendrill {

inline constexpr std::u16string_view kIndexKey = u"intKeyIndex";

// Whether the index lies below the count. It is compared as the number that it is, before any rounding: of 5 elements
// 4.9 is below the count and, once converted, means position 5, which is none; 0.6 means position 1. A missing index is
// 0. 13 for a text that is no number.
bool IsBelow(const Value& index, std::int16_t count);

// Raises `number`, one of the library's own, unless the index lies below the count.
void RequireBelow(const Value& index, std::int16_t count, std::int32_t number);

}  // namespace wendrill
