// Runs the script tests of a folder (--tests).
#pragma once

#include "command_line.h"

namespace wendrill::script_host {

// Returns the graver of two exit statuses. From gravest to least grave: 124, 1, any other status, 3, 0.
int Graver(int left, int right);

// Runs every *_test.vbs and *_test.js of the folder, in the order of their names, each in its own process. Beside the
// simulated terminal, a test uses the scenario in the same folder that has the test's name (mine_test.toml for
// mine_test.vbs), else that of the command line. Prints whether each test passed or failed. Returns the gravest exit
// status of the tests. Throws UsageError when the folder has no tests.
int RunTests(const CommandLine& line);

}  // namespace wendrill::script_host
