// Compares the library's counts for a derived PNR with the numbers of elements that the derivation put into the
// collections.
#pragma once

#include <string>
#include <string_view>

namespace wendrill::testing {

// Describes the first count that differs; empty when all counts are equal.
std::string DifferentCount(std::u16string_view display);

}  // namespace wendrill::testing
