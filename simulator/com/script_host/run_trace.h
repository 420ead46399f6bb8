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
  unsigned long line = 0;  // line and column are counted from 1; 0 when not known
  unsigned long column = 0;
};

// The trace of one run. When nothing is traced, Failed, End and Cut have no effect, and Broken returns an empty string.
// Failed, Cut and Broken are thread-safe.
class RunTrace {
 public:
  // Starts the trace; does nothing when the command line asks for no trace. `scriptName` is the file name of the
  // script. `simulator` is the simulator into whose trace the script host writes; null for a run with a real terminal,
  // whose trace the script host writes alone. Throws UsageError when the file cannot be written.
  void Start(const CommandLine& line, const std::wstring& scriptName, simulator::IObservable* simulator);

  // Writes the error that ended the script.
  void Failed(const ScriptFailure& failure);

  // Writes the end of the run with its exit status. REQUIRES: called on the script's thread.
  void End(int status);

  // Writes the end of the run with its exit status, when a crash or the time limit is about to end the process in the
  // middle of the script. In contrast to End, Cut may be called on any thread.
  void Cut(int status);

  // Returns the path of the trace when a line could not be written; empty when every line has been written.
  std::wstring Broken();

 private:
  std::wstring script_;
  std::wstring file_;
  std::unique_ptr<trace::Trace> own_;                         // the trace of a run with a real terminal; else null
  std::atomic<simulator::IObservable*> simulator_ = nullptr;  // of a simulated run, owned by SimulatorLink; else null
};

}  // namespace wendrill::script_host
