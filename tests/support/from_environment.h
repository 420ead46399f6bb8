// Reads numbers from environment variables, with which a user sets parameters of a test run.
#pragma once

#include <cstdint>
#include <cstdlib>

namespace wendrill::testing {

// The number in the environment variable `name`; `otherwise` when the variable is not set.
inline std::uint32_t NumberFromEnvironment(const char* name, std::uint32_t otherwise) {
  const char* text = std::getenv(name);
  return text == nullptr ? otherwise : static_cast<std::uint32_t>(std::strtoul(text, nullptr, 10));
}

}  // namespace wendrill::testing
