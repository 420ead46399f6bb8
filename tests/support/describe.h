// Values and members as a person reads them: for failure messages and for expected values that are in files.
#pragma once

#include <iosfwd>
#include <string>

#include "common/value.h"
#include "toolkit/automation_object.h"

namespace wendrill {

// Found by GoogleTest when a comparison fails.
void PrintTo(const Value& value, std::ostream* out);

namespace testing {

// "text" in quotes (line breaks as \r and \n, a backslash or quote after a backslash), True, False, int16 3, int32 3,
// double 0.5, date 39611, Empty, Null, Nothing, object, foreign 4.1, [ ... ] for arrays.
std::string Describe(const Value& value);

// 75 or Text.
std::string Describe(const Member& member);

}  // namespace testing
}  // namespace wendrill
