// The proof that nothing of what was to be hidden is in a finished recording.
#pragma once

#include <set>
#include <string>
#include <string_view>

namespace wendrill::recording {

// Whether one of the tokens is in the text of a scenario: a name as a whole word, whatever its capitals, in a string or
// in a sentence about what is not reproduced; a number as it was written, anywhere, also across the rows of a screen.
// The scenario's own keys are no names of people.
bool HoldsToken(std::string_view scenario, const std::set<std::u16string>& tokens);

}  // namespace wendrill::recording
