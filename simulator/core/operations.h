// The names of the simulated components' members. A test plans the failure of a member by its name (Gate::FailNext).
#pragma once

#include <string>
#include <string_view>

namespace wendrill::simulator {

// The name that means every member of every component.
inline constexpr std::u16string_view kEveryOperation = u"*";

// Whether `name` is "*" or, with case ignored, the name of a member of a simulated component.
bool IsOperation(std::u16string_view name);

// The names of all members in alphabetical order, joined with ", ", for the error message that rejects an unknown name.
// The list does not contain "*".
std::u16string KnownOperations();

}  // namespace wendrill::simulator
