// What a run has found: its expectations and how the script ended. May be used on several threads.
#pragma once

#include <mutex>
#include <string>
#include <vector>

namespace wendrill::script_host {

struct Case {
  std::wstring name;
  std::wstring failure;  // one line, without the script's name; empty when the case passed
  bool skipped = false;  // could not be looked at, because the process was ended
};

class RunRecord {
 public:
  void Add(Case expectation);
  std::vector<Case> Expectations();
  bool AnyFailed();

  // Keeps the first line of the first report; later ones are ignored.
  void ScriptFailed(const std::wstring& report);
  // That line; empty when the script has not failed.
  std::wstring ScriptError();

 private:
  std::mutex mutex_;
  std::vector<Case> expectations_;
  std::wstring scriptError_;
};

}  // namespace wendrill::script_host
