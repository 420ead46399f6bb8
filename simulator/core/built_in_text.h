// The text of simulator/scenarios/built_in.toml, compiled into the program.
#pragma once

#include <string_view>

namespace wendrill::simulator {

extern const std::string_view kBuiltInText;

}  // namespace wendrill::simulator
