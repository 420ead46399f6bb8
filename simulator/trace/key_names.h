// The names of the terminal's keys.
#pragma once

#include <cstdint>
#include <string_view>

namespace wendrill::trace {

// The constant of a key's code in the library, such as kbPA1; the first one where two have the same code. Empty for a
// code without a constant.
std::u16string_view KeyName(std::int32_t code);

}  // namespace wendrill::trace
