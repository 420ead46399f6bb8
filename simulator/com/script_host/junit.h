// Test results in the XML form that CI servers read.
#pragma once

#include <string>
#include <vector>

#include "run_record.h"

namespace wendrill::script_host {

// The <testsuite> of one script. A failed case repeats script, name and message in its text, because some readers show
// nothing else. Characters that XML forbids become U+FFFD.
std::wstring JUnitSuite(const std::wstring& script, const std::vector<Case>& cases, double seconds);

// A whole file with these suites.
std::wstring JUnitFile(const std::wstring& suites);

// The suites of a whole file; empty for a file that JUnitFile has not made.
std::wstring SuitesOf(const std::wstring& file);

}  // namespace wendrill::script_host
