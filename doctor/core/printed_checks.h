// What the doctor prints.
#pragma once

#include <string>

#include "core/check.h"

namespace wendrill::doctor {

// A table of check, state and found. What to do is below its check and not beside it, so that a command stays on one
// line and can be copied. Ends with one line that sums up. Lines end in LF.
std::string Table(const Checks& checks);

// {"checks": [{"check", "found", "state", "what_to_do"}...], "status": 0, 1 or 2}, ended by LF.
std::string Json(const Checks& checks);

}  // namespace wendrill::doctor
