// Finds the name of a key by its code, for the lines of a trace.
#pragma once

#include <cstdint>
#include <string_view>

namespace wendrill::trace {

// The name of the library's constant for a key code, such as kbPA1. When two constants have this code, the first of
// them; when no constant has it, an empty string.
std::u16string_view KeyName(std::int32_t code);

}  // namespace wendrill::trace
