// The doctor's checks of a machine. Their order is the order of the report.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/machine.h"

namespace wendrill::doctor {

// The result of a check, in the order of severity. The values are the doctor's exit statuses.
enum class State : std::uint8_t { Ok = 0, Warn = 1, Missing = 2 };

struct Check {
  std::string name;
  std::string found;
  State state = State::Ok;
  std::string whatToDo = {};  // advice in full sentences, for a reader who has never registered a library; each command
                              // is on a line of its own. Empty when there is nothing to do
};

using Checks = std::vector<Check>;

// Makes all checks of a machine. Unless `program` is empty, also checks how that program finds the library.
Checks Examine(const Machine& machine, const std::string& program);

// The groups of checks of which Examine consists.
Checks ExamineSystem(const Machine& machine);
Checks ExamineScriptHosts(const Machine& machine);
Checks ExamineLibrary(const Machine& machine);
Checks ExamineTerminal(const Machine& machine);
Checks ExamineDownloads(const Machine& machine);
Checks ExamineVariables(const Machine& machine);
Checks ExamineProgram(const Machine& machine, const std::string& program);

// The most severe state of all checks; Ok when there are no checks.
State StateOf(const Checks& checks);

}  // namespace wendrill::doctor
