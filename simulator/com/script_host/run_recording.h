// The recording of a run: the recorder's part is in its DLL.
#pragma once

#include <wrl/client.h>

#include <string>
#include <vector>

#include "com/recorder/run_recorder.h"
#include "command_line.h"

namespace wendrill::script_host {

class RunRecording {
 public:
  // Makes the recorder pass calls on to the terminal that the command line names; before the mode's manifest is used.
  static void ChooseTerminal(const CommandLine& line);

  // Begins the recording when the command line asks for one. Throws UsageError when the file cannot be written, or the
  // recorder is not beside this program.
  void Start(const CommandLine& line);

  struct End {
    int status = 0;                      // that of the script host when nothing else went wrong
    std::vector<std::wstring> messages;  // each without a line end
  };
  // Writes the file. To be called when the script's objects are released.
  End Finish();

 private:
  Microsoft::WRL::ComPtr<recorder::IRunRecorder> recorder_;
};

}  // namespace wendrill::script_host
