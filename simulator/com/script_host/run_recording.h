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
  // Sets the environment variable that names the DLL to which the recorder forwards calls: QuilletSimulator.dll, or
  // none for the registered terminal. Does nothing without a recording. Call before the ModeManifest is created.
  static void ChooseTerminal(const CommandLine& line);

  // Begins the recording; does nothing when the command line asks for none. Throws UsageError when the recorder is not
  // beside this program, or when the file exists or cannot be written.
  void Start(const CommandLine& line);

  // The outcome of a recording.
  struct End {
    int status = 0;                      // exit status: 0, 1 without a file, 4 when something is not reproduced
    std::vector<std::wstring> messages;  // sentences for a person, without line ends
  };
  // Writes the file. Call after the script's objects have been released. Without a recording, returns 0 and no
  // messages.
  End Finish();

 private:
  Microsoft::WRL::ComPtr<recorder::IRunRecorder> recorder_;
};

}  // namespace wendrill::script_host
