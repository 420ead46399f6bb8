// Proves that a finished recording contains none of the names and card numbers that were hidden in it.
#pragma once

#include <set>
#include <string>
#include <string_view>

namespace wendrill::recording {

// Whether the text of a scenario contains one of the tokens (Redactor::Tokens), which are the names and numbers that
// must be hidden. A token with a digit is a number, any other token is a name.
// - A name is searched for as a whole word, ignoring case: in the strings of the scenario and in the comment lines that
//   begin with "# not reproduced: ". Keys and other comments are not searched for names.
// - A number is searched for verbatim in the whole text, even inside a longer number. REQUIRES: the token begins with
//   a digit.
// Screens are also searched with a line break after each row. So a number that continues in the next row is found if
// its token contains the line break too, as Redactor::Tokens writes such a number.
bool HoldsToken(std::string_view scenario, const std::set<std::u16string>& tokens);

}  // namespace wendrill::recording
