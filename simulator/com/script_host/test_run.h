// Runs the tests of a folder.
#pragma once

#include "command_line.h"

namespace wendrill::script_host {

// The most important of two exit statuses: 124, 1, any other, 3, 0.
int Graver(int left, int right);

// Runs every *_test.vbs and *_test.js of the folder, in the order of their names, each in a process of its own with the
// scenario of its own name where there is one. Prints which passed and failed. Returns the gravest exit status of the
// tests. Throws UsageError for a folder without tests.
int RunTests(const CommandLine& line);

}  // namespace wendrill::script_host
