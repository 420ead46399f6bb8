// Private interface between the recorder and the program that runs a script with it. It has no marshalling: both sides
// are in one process and on one thread, and built together.
#pragma once

#include <unknwn.h>
#include <windows.h>

#include "recording/recording.h"

namespace wendrill::recorder {

// The environment variable that asks for a recording in any program beside the recorder: the file to write.
inline constexpr char16_t kFileVariable[] = u"QUILLET_RECORD";

inline constexpr wchar_t kRunClass[] = L"QuilletRecorder.Run";

// Supported by QuilletRecorder.Run.
MIDL_INTERFACE("F60B93E8-4D27-4A1C-B85E-7C92D01A6F43")
IRunRecorder : public IUnknown {
 public:
  // From now on the calls of the terminal's objects are recorded. Before any of them was created. A failure leaves the
  // thread's error information: the file exists, or cannot be written.
  virtual HRESULT Start(const recording::Settings& settings) = 0;

  // Writes the file. The outcome is the recorder's; null when that failed.
  virtual const recording::Outcome* End() = 0;
};

}  // namespace wendrill::recorder

#ifdef __CRT_UUID_DECL
__CRT_UUID_DECL(wendrill::recorder::IRunRecorder, 0xF60B93E8, 0x4D27, 0x4A1C, 0xB8, 0x5E, 0x7C, 0x92, 0xD0, 0x1A, 0x6F,
                0x43)
#endif
