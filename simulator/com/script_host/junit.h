// Test results in the XML format of JUnit, which CI servers read.
#pragma once

#include <string>
#include <vector>

#include "run_record.h"

namespace wendrill::script_host {

// Returns the <testsuite> element of one script. `seconds` is the time that the run took. The text inside the <failure>
// element of a failed case repeats the script, the name and the message, because some readers show only this text.
// Characters that XML forbids become U+FFFD.
std::wstring JUnitSuite(const std::wstring& script, const std::vector<Case>& cases, double seconds);

// Returns the text of a JUnit file that contains the <testsuite> elements `suites`.
std::wstring JUnitFile(const std::wstring& suites);

// Returns the <testsuite> elements in `file`, the text of a JUnit file; empty when JUnitFile did not write this text.
std::wstring SuitesOf(const std::wstring& file);

}  // namespace wendrill::script_host
