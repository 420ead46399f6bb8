// The results of a run: its expectations, and the error that ended the script. Thread-safe.
#pragma once

#include <mutex>
#include <string>
#include <vector>

namespace wendrill::script_host {

// One test case: an expectation of the script, or a result that the script host adds.
struct Case {
  std::wstring name;
  std::wstring failure;  // one line, without the script's name; empty when the case did not fail
  bool skipped = false;  // true when the result is unknown, because the process was ended
};

class RunRecord {
 public:
  void Add(Case expectation);
  std::vector<Case> Expectations();
  bool AnyFailed();

  // Keeps the first line of the first report. Later calls have no effect.
  void ScriptFailed(const std::wstring& report);
  // Returns the line that ScriptFailed kept; empty when the script has not failed.
  std::wstring ScriptError();

 private:
  std::mutex mutex_;
  std::vector<Case> expectations_;
  std::wstring scriptError_;
};

}  // namespace wendrill::script_host
