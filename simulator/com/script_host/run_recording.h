// The recording of a run, as the script host controls it. The recorder itself is in QuilletRecorder.dll.
#pragma once

#include <wrl/client.h>

#include <string>
#include <vector>

#include "com/recorder/run_recorder.h"
#include "command_line.h"

namespace wendrill::script_host {

class RunRecording {
 public:
  // Sets the environment variable QUILLET_RECORD_BEHIND, which selects the components to which the recorder forwards
  // calls. For the simulated terminal, the variable is set to the path of QuilletSimulator.dll. For a real terminal,
  // the variable is made empty: the recorder then forwards calls to the registered components. Does nothing when the
  // command line asks for no recording. REQUIRES: called before the ModeManifest is created.
  static void ChooseTerminal(const CommandLine& line);

  // Begins the recording; does nothing when the command line asks for no recording. Throws UsageError when the recorder
  // cannot be created or rejects its settings: the file exists, the file cannot be written, or an environment variable
  // of the recorder has an invalid value.
  void Start(const CommandLine& line);

  // The outcome of a recording. `status` is an exit status.
  struct End {
    int status = 0;                      // 1: no file was written; 4: a replay differs from the recorded run; else 0
    std::vector<std::wstring> messages;  // sentences for a person, without line ends
  };
  // Ends the recording and writes its file. Returns status 0 and no messages when there is no recording. REQUIRES: the
  // script's objects have been released.
  End Finish();

 private:
  Microsoft::WRL::ComPtr<recorder::IRunRecorder> recorder_;
};

}  // namespace wendrill::script_host
