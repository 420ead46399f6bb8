// What the library counts over a derived PNR, beside what the derivation put into each collection.
#pragma once

#include <string>
#include <string_view>

namespace wendrill::testing {

// The first count that differs, told; empty when all agree.
std::string DifferentCount(std::u16string_view display);

}  // namespace wendrill::testing
