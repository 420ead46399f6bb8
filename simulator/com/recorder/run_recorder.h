// Private interface between the recorder and the script host. It has no marshalling, because recorder and script host
// run in one process and on one thread, and are built together.
#pragma once

#include <unknwn.h>
#include <windows.h>

#include "recording/recording.h"

namespace wendrill::recorder {

// The environment variable with the path of the file to write. The script host uses the variable when --record is not
// given. In any other program, the recorder itself starts the recording that the variable requests.
inline constexpr char16_t kFileVariable[] = u"QUILLET_RECORD";

inline constexpr wchar_t kRunClass[] = L"QuilletRecorder.Run";

// Starts and ends a recording for the script host. Implemented by the class QuilletRecorder.Run.
MIDL_INTERFACE("F60B93E8-4D27-4A1C-B85E-7C92D01A6F43")
IRunRecorder : public IUnknown {
 public:
  // Starts to record the calls of the terminal's objects. REQUIRES: no object of the terminal has been created. On
  // failure, the thread's error information gives the reason, for example: the file exists, the file cannot be written,
  // or QUILLET_RECORD_PNR has an unknown value.
  virtual HRESULT Start(const recording::Settings& settings) = 0;

  // Writes the file. Returns the outcome, which belongs to the recorder and says whether the file was written; null
  // when nothing is recorded.
  virtual const recording::Outcome* End() = 0;
};

}  // namespace wendrill::recorder

#ifdef __CRT_UUID_DECL
__CRT_UUID_DECL(wendrill::recorder::IRunRecorder, 0xF60B93E8, 0x4D27, 0x4A1C, 0xB8, 0x5E, 0x7C, 0x92, 0xD0, 0x1A, 0x6F,
                0x43)
#endif
