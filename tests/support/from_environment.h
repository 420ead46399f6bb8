// Numbers that whoever runs a test may choose.
#pragma once

#include <cstdint>
#include <cstdlib>

namespace wendrill::testing {

inline std::uint32_t NumberFromEnvironment(const char* name, std::uint32_t otherwise) {
  const char* text = std::getenv(name);
  return text == nullptr ? otherwise : static_cast<std::uint32_t>(std::strtoul(text, nullptr, 10));
}

}  // namespace wendrill::testing
