// Reads environment variables.
#pragma once

#include <string>
#include <string_view>

namespace wendrill::simulator {

// The value of an environment variable; empty when the variable is not set.
std::u16string EnvironmentText(std::u16string_view name);

}  // namespace wendrill::simulator
