// The variables of the environment.
#pragma once

#include <string>
#include <string_view>

namespace wendrill::simulator {

// The value of a variable; empty when it is not set.
std::u16string EnvironmentText(std::u16string_view name);

}  // namespace wendrill::simulator
