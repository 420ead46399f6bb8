// The trace of a run (docs/trace.md): what the script host itself has to tell there. Beside the simulator, which writes
// the rest, its lines go through the simulator's own trace; beside a real terminal they are the whole trace.
#pragma once

#include <atomic>
#include <memory>
#include <optional>
#include <string>

#include "com/run_observer.h"
#include "command_line.h"
#include "trace/trace.h"

namespace wendrill::script_host {

// The error of a script, as it is reported.
struct ScriptFailure {
  std::wstring text;
  std::optional<long> number = {};  // as in Err.Number; a crash and the time limit have no number
  std::wstring source = {};
  unsigned long line = 0;  // this and the column count from 1; 0: not known
  unsigned long column = 0;
};

// Every function but Start may be called on any thread, and does nothing without a trace.
class RunTrace {
 public:
  // Does nothing unless the command line asks for a trace. Throws UsageError when the file cannot be written.
  void Start(const CommandLine& line, const std::wstring& scriptName, simulator::IObservable* simulator);

  void Failed(const ScriptFailure& failure);

  // The run ended with an exit status. Called on the script's thread.
  void End(int status);

  // The process is about to be ended in the middle of the script.
  void Cut(int status);

  // The file that could not be written to its end; empty when all is well.
  std::wstring Broken();

 private:
  std::wstring script_;
  std::wstring file_;
  std::unique_ptr<trace::Trace> own_;                         // beside a real terminal
  std::atomic<simulator::IObservable*> simulator_ = nullptr;  // owned by the link to the simulator
};

}  // namespace wendrill::script_host
