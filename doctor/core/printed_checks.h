// Formats the checks for printing.
#pragma once

#include <string>

#include "core/check.h"

namespace wendrill::doctor {

// A table with the columns check, state and found. The advice is printed below the row of its check, not in a column,
// so that each command is on one line and can be copied. The last line has the numbers of missing things and of
// warnings. Lines end in LF.
std::string Table(const Checks& checks);

// The checks as JSON: {"checks": [{"check", "found", "state", "what_to_do"}...], "status": 0, 1 or 2}, followed by LF.
std::string Json(const Checks& checks);

}  // namespace wendrill::doctor
