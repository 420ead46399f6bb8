// Finds the name of a key by its code, for the lines of a trace.
#pragma once

#include <cstdint>
#include <string_view>

namespace wendrill::trace {

// The name of the library's constant for a key code, such as kbPA1. When two constants have this code, returns the name
// of the constant that the interface definition declares first. When no constant has the code, returns an empty string.
std::u16string_view KeyName(std::int32_t code);

}  // namespace wendrill::trace
