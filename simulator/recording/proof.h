// Proves that a finished recording contains none of the names and card numbers that were hidden in it.
#pragma once

#include <set>
#include <string>
#include <string_view>

namespace wendrill::recording {

// Whether the text of a scenario contains one of the tokens, the names and numbers that must be hidden. A token with a
// digit is a number, any other token is a name.
// - A name is searched for as a whole word, ignoring case, in the strings and in the comments about what is not
//   reproduced, but not in the keys of the scenario.
// - A number is searched for verbatim in the whole text. The token of a number that was divided between two rows of a
//   screen contains the line break between the rows.
bool HoldsToken(std::string_view scenario, const std::set<std::u16string>& tokens);

}  // namespace wendrill::recording
