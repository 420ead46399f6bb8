// The members of the simulated components that a planned failure can name.
#pragma once

#include <string>
#include <string_view>

namespace wendrill::simulator {

// Stands for every member of every component.
inline constexpr std::u16string_view kEveryOperation = u"*";

// Whether a simulated component has a member of that name (compared without case), or the name is "*".
bool IsOperation(std::u16string_view name);

// All names in alphabetical order, joined with ", ", for the error message that rejects a name.
std::u16string KnownOperations();

}  // namespace wendrill::simulator
