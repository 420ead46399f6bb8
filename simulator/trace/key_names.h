// The names of the terminal's keys.
#pragma once

#include <cstdint>
#include <string_view>

namespace wendrill::trace {

// The name of the library's constant for a key code, such as kbPA1; the first constant where two have the same code.
// Empty for a code without a constant.
std::u16string_view KeyName(std::int32_t code);

}  // namespace wendrill::trace
