// The results of a run: its expectations, and the error that ended the script. Thread-safe.
#pragma once

#include <mutex>
#include <string>
#include <vector>

namespace wendrill::script_host {

// One test case in the JUnit file: an expectation, or a result that the script host adds, such as "script ended".
struct Case {
  std::wstring name;
  std::wstring failure;  // one line, without the script's name; empty when the case did not fail
  bool skipped = false;  // true when the result is unknown, because the time limit ended the process
};

class RunRecord {
 public:
  void Add(Case expectation);
  std::vector<Case> Expectations();
  bool AnyFailed();

  // Stores the first line of `report` as the script's error. Has no effect when an earlier call has stored an error.
  void ScriptFailed(const std::wstring& report);
  // Returns the line that ScriptFailed stored; empty when the script has not failed.
  std::wstring ScriptError();

 private:
  std::mutex mutex_;
  std::vector<Case> expectations_;
  std::wstring scriptError_;
};

}  // namespace wendrill::script_host
