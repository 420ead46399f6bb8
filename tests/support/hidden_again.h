// Checks the properties that redaction must have for any texts.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "redaction/redactor.h"

namespace wendrill::testing {

// Hides the texts in order, then hides the results in the same order with a second Redactor. Returns a description of
// the first violation, empty when there is none. Violations are: hiding changes the length of a text; the second hiding
// changes a text or learns a name; or a name that the first Redactor knows at the end remains in a text that it hides
// once more.
std::string WrongInHiding(const std::vector<std::u16string>& texts, const std::set<redaction::Kind>& kept = {});

}  // namespace wendrill::testing
