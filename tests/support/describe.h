// Readable texts for values and members. They are used in failure messages, and in files with expected values.
#pragma once

#include <iosfwd>
#include <string>

#include "common/value.h"
#include "toolkit/automation_object.h"

namespace wendrill {

// Prints a value in the messages of GoogleTest, which finds this function by argument-dependent look-up.
void PrintTo(const Value& value, std::ostream* out);

namespace testing {

// The text for a value: True, False, int16 3, int32 3, double 0.5, date 39611, Empty, Null, Nothing, object,
// foreign 4.1. A string is in quotes, with \r and \n for line breaks and a backslash before each backslash and quote.
// An array is "from 0 [ ... ]", where 0 is its lower bound.
std::string Describe(const Value& value);

// The text for a member: its DISPID or its name, such as 75 or Text.
std::string Describe(const Member& member);

}  // namespace testing
}  // namespace wendrill
