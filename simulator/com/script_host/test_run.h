// Runs the script tests of a folder (--tests).
#pragma once

#include "command_line.h"

namespace wendrill::script_host {

// Returns the graver of two exit statuses. From gravest to least grave: 124 (time limit), 1 (script failed), any other
// status, 3 (expectation failed), 0. When the statuses are different and neither is 124, 1, 3 or 0, returns `left`.
int Graver(int left, int right);

// Runs every *_test.vbs and *_test.js of the folder, in the order of their names, each in its own process. In the
// simulated mode, a test uses the scenario in the same folder that has the test's name (mine_test.toml for
// mine_test.vbs). When there is no such file, the test uses the scenario that --scenario names, if any. Prints whether
// each test passed or failed, and writes the JUnit file if the command line asks for one. Returns the gravest exit
// status of the tests. Throws UsageError when the folder has no tests, when a test cannot be started, and when the
// JUnit file cannot be written.
int RunTests(const CommandLine& line);

}  // namespace wendrill::script_host
