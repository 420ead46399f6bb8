// What holds of hidden texts, whatever the texts are.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "redaction/redactor.h"

namespace wendrill::testing {

// Hides the texts one after the other, then what came out by a new Redactor, in the same order. Says what is wrong: a
// text has another length, the second hiding changes something or hides a name, or a name that is known in the end is
// still in a text. Empty when nothing is.
std::string WrongInHiding(const std::vector<std::u16string>& texts, const std::set<redaction::Kind>& kept = {});

}  // namespace wendrill::testing
