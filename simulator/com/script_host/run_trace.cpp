#include "run_trace.h"

#include "com/server/automation_types.h"
#include "common/error.h"
#include "text_file.h"

namespace wendrill::script_host {

void RunTrace::Start(const CommandLine& line, const std::wstring& scriptName, simulator::IObservable* simulator) {
  if (line.trace.file.empty()) {
    return;
  }
  script_ = scriptName;
  file_ = line.trace.file.wstring();
  WriteText(file_, {});  // throws UsageError with the path when the file cannot be written
  if (simulator == nullptr) {
    own_ = std::make_unique<trace::Trace>(line.trace);
    own_->Begin(com::TextOf(std::wstring_view(script_)), u"");
    return;
  }
  if (FAILED(simulator->StartTrace(line.trace, script_))) {
    throw UsageError{L"cannot be written: " + file_};
  }
  simulator_ = simulator;
}

void RunTrace::Failed(const ScriptFailure& failure) {
  const trace::Failed line{.text = com::TextOf(std::wstring_view(failure.text)),
                           .number = failure.number,
                           .source = com::TextOf(std::wstring_view(failure.source)),
                           .file = com::TextOf(std::wstring_view(script_)),
                           .line = failure.line,
                           .column = failure.column};
  if (own_ != nullptr) {
    own_->Write(line);
  } else if (simulator::IObservable* simulator = simulator_) {
    simulator->TraceError(line);
  }
}

void RunTrace::End(int status) {
  if (own_ != nullptr) {
    own_->Write(trace::Ended{.status = status});
  } else if (simulator::IObservable* simulator = simulator_) {
    simulator->EndTrace(status);
  }
}

void RunTrace::Cut(int status) {
  if (own_ != nullptr) {
    own_->Write(trace::Ended{.status = status});
  } else if (simulator::IObservable* simulator = simulator_) {
    simulator->CutTrace(status);
  }
}

std::wstring RunTrace::Broken() {
  simulator::IObservable* simulator = simulator_;
  const bool whole = own_ != nullptr ? own_->IsWhole() : simulator == nullptr || simulator->TraceIsWhole();
  return whole ? std::wstring() : file_;
}

}  // namespace wendrill::script_host
