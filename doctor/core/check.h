// The checks, in the order in which they are reported.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/machine.h"

namespace wendrill::doctor {

// In the order of severity. The values are the doctor's exit statuses.
enum class State : std::uint8_t { Ok = 0, Warn = 1, Missing = 2 };

struct Check {
  std::string name;
  std::string found;
  State state = State::Ok;
  std::string whatToDo = {};  // sentences for somebody who has never registered a library, each command on a line of
                              // its own; empty where nothing is to be done
};

using Checks = std::vector<Check>;

// All checks of a machine. `program`: a program whose way to the library is looked at too; none when empty.
Checks Examine(const Machine& machine, const std::string& program);

// The parts of Examine.
Checks ExamineSystem(const Machine& machine);
Checks ExamineScriptHosts(const Machine& machine);
Checks ExamineLibrary(const Machine& machine);
Checks ExamineTerminal(const Machine& machine);
Checks ExamineDownloads(const Machine& machine);
Checks ExamineVariables(const Machine& machine);
Checks ExamineProgram(const Machine& machine, const std::string& program);

// The worst state of all.
State StateOf(const Checks& checks);

}  // namespace wendrill::doctor
