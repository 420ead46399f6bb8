#include "run_record.h"

#include <algorithm>
#include <utility>

namespace wendrill::script_host {

void RunRecord::Add(Case expectation) {
  const std::lock_guard guard(mutex_);
  expectations_.push_back(std::move(expectation));
}

std::vector<Case> RunRecord::Expectations() {
  const std::lock_guard guard(mutex_);
  return expectations_;
}

bool RunRecord::AnyFailed() {
  const std::lock_guard guard(mutex_);
  return std::any_of(expectations_.begin(), expectations_.end(),
                     [](const Case& expectation) { return !expectation.failure.empty(); });
}

void RunRecord::ScriptFailed(const std::wstring& report) {
  const std::lock_guard guard(mutex_);
  if (scriptError_.empty()) {
    scriptError_ = report.substr(0, report.find_first_of(L"\r\n"));
  }
}

std::wstring RunRecord::ScriptError() {
  const std::lock_guard guard(mutex_);
  return scriptError_;
}

}  // namespace wendrill::script_host
