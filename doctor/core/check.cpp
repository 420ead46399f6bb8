#include "core/check.h"

#include <algorithm>
#include <iterator>

namespace wendrill::doctor {

Checks Examine(const Machine& machine, const std::string& program) {
  Checks all;
  const auto add = [&all](Checks part) { std::move(part.begin(), part.end(), std::back_inserter(all)); };
  add(ExamineSystem(machine));
  add(ExamineScriptHosts(machine));
  add(ExamineLibrary(machine));
  add(ExamineTerminal(machine));
  add(ExamineDownloads(machine));
  add(ExamineVariables(machine));
  if (!program.empty()) {
    add(ExamineProgram(machine, program));
  }
  return all;
}

State StateOf(const Checks& checks) {
  State worst = State::Ok;
  for (const Check& check : checks) {
    worst = std::max(worst, check.state);
  }
  return worst;
}

}  // namespace wendrill::doctor
