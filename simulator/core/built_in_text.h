// The text of simulator/scenarios/built_in.toml, compiled in.
#pragma once

#include <string_view>

namespace wendrill::simulator {

extern const std::string_view kBuiltInText;

}  // namespace wendrill::simulator
