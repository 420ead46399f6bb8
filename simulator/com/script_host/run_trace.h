// The script host's part of the trace of a run (docs/trace.md): the script's error and the end of the run. With the
// simulator, these lines go into the simulator's trace, which contains the rest of the run. With a real terminal, these
// lines are the whole trace.
#pragma once

#include <atomic>
#include <memory>
#include <optional>
#include <string>

#include "com/run_observer.h"
#include "command_line.h"
#include "trace/trace.h"

namespace wendrill::script_host {

// The error of a script, as the script host reports it.
struct ScriptFailure {
  std::wstring text;
  std::optional<long> number = {};  // as in Err.Number; nullopt for a crash and for the time limit
  std::wstring source = {};
  unsigned long line = 0;  // line and column count from 1; 0 when not known
  unsigned long column = 0;
};

// The trace of one run. Failed, Cut and Broken are thread-safe. Without a trace no function has an effect.
class RunTrace {
 public:
  // Starts the trace when the command line asks for one; `simulator` is null beside a real terminal. Throws UsageError
  // when the file cannot be written.
  void Start(const CommandLine& line, const std::wstring& scriptName, simulator::IObservable* simulator);

  // Writes the error that ended the script.
  void Failed(const ScriptFailure& failure);

  // Writes the end of the run with its exit status. REQUIRES: called on the script's thread.
  void End(int status);

  // Writes the end of a run whose process is about to be ended in the middle of the script.
  void Cut(int status);

  // Returns the path of the trace when a line could not be written; empty when every line has been written.
  std::wstring Broken();

 private:
  std::wstring script_;
  std::wstring file_;
  std::unique_ptr<trace::Trace> own_;                         // null unless beside a real terminal
  std::atomic<simulator::IObservable*> simulator_ = nullptr;  // owned by the SimulatorLink; null beside a real terminal
};

}  // namespace wendrill::script_host
