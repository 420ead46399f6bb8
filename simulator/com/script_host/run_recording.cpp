#include "run_recording.h"

#include <cstdlib>
#include <string_view>

#include "com/server/automation_types.h"
#include "program_path.h"
#include "script_object.h"

namespace wendrill::script_host {

namespace {

using Microsoft::WRL::ComPtr;

constexpr int kNotWritten = 1;
constexpr int kNotReproduced = 4;

std::wstring Wide(std::u16string_view text) {
  return std::wstring(com::WideOf(text));
}

// Returns the reason of a COM call that failed with `status`: the description in the thread's error information
// (IErrorInfo). When there is no error information, or its description is empty, returns the system's message
// for `status`.
std::wstring ReasonOf(HRESULT status) {
  ComPtr<IErrorInfo> told;
  BSTR description = nullptr;
  if (GetErrorInfo(0, &told) == S_OK) {
    told->GetDescription(&description);
  }
  const std::wstring reason = Taken(description);
  return reason.empty() ? SystemMessage(status) : reason;
}

ComPtr<recorder::IRunRecorder> CreateRecorder() {
  CLSID id;
  ComPtr<recorder::IRunRecorder> created;
  SetErrorInfo(0, nullptr);
  HRESULT status = CLSIDFromProgID(recorder::kRunClass, &id);
  if (SUCCEEDED(status)) {
    status = CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(recorder::IRunRecorder),
                              reinterpret_cast<void**>(created.ReleaseAndGetAddressOf()));
  }
  if (FAILED(status)) {
    throw UsageError{L"the recorder beside this program cannot be used: " + ReasonOf(status)};
  }
  return created;
}

}  // namespace

void RunRecording::ChooseTerminal(const CommandLine& line) {
  if (line.recording.empty()) {
    return;
  }
  const std::wstring simulator = (ProgramPath().parent_path() / L"QuilletSimulator.dll").wstring();
  _wputenv_s(L"QUILLET_RECORD_BEHIND", line.mode == Mode::Simulated ? simulator.c_str() : L"");
}

void RunRecording::Start(const CommandLine& line) {
  if (line.recording.empty()) {
    return;
  }
  recorder_ = CreateRecorder();
  const HRESULT status = recorder_->Start({.file = line.recording, .kept = line.trace.kept});
  if (FAILED(status)) {
    throw UsageError{ReasonOf(status)};
  }
}

RunRecording::End RunRecording::Finish() {
  End end;
  const recording::Outcome* const outcome = recorder_ ? recorder_->End() : nullptr;
  if (outcome == nullptr) {
    return end;
  }
  if (!outcome->isWritten) {
    end.status = kNotWritten;
    end.messages.push_back(L"there is no recording: " + Wide(outcome->problem));
    return end;
  }
  for (const std::u16string& sentence : outcome->notReproduced) {
    end.status = kNotReproduced;
    end.messages.push_back(L"not reproduced: " + Wide(sentence));
  }
  return end;
}

}  // namespace wendrill::script_host
