#include "com/recorder/run.h"

#include <chrono>
#include <filesystem>
#include <string>
#include <utility>

#include "com/recorder/run_recorder.h"
#include "com/server/automation_types.h"
#include "common/error.h"
#include "core/environment.h"
#include "trace/settings.h"

namespace wendrill::recorder {
namespace {

constexpr char16_t kPnrVariable[] = u"QUILLET_RECORD_PNR";  // its value: eager or lazy

// Writes a message to the debugger.
void Tell(std::u16string_view problem) noexcept {
  try {
    OutputDebugStringW((L"QuilletRecorder: " + std::wstring(com::WideOf(problem)) + L"\r\n").c_str());
  } catch (...) {  // the message could not be built for lack of memory
  }
}

[[noreturn]] void Refuse(std::u16string description) {
  throw Error(static_cast<std::int32_t>(RunTimeError::InvalidCall), u"QuilletRecorder", std::move(description));
}

}  // namespace

bool ReadsWholePnrs() {
  const std::u16string text = simulator::EnvironmentText(kPnrVariable);
  if (!text.empty() && text != u"eager" && text != u"lazy") {
    Refuse(std::u16string(kPnrVariable) + u" must be eager or lazy, not \"" + text + u"\".");
  }
  return text != u"lazy";
}

void Run::StartOfEnvironment() {
  if (isDecided_) {
    return;
  }
  const std::u16string file = simulator::EnvironmentText(kFileVariable);
  if (!file.empty()) {
    auto kept = trace::SettingsOf(file, u"", simulator::EnvironmentText(trace::kKeptVariable)).kept;
    // An absolute path, because the program may change its current folder.
    Start({std::filesystem::absolute(std::filesystem::path(file)), std::move(kept), ReadsWholePnrs()}, EndedBy::Lives);
  }
  isDecided_ = true;
}

void Run::Start(recording::Settings settings, EndedBy end) {
  notes_ = std::make_unique<Notes>(std::move(settings));
  end_ = end;
  isDecided_ = true;
}

void Run::EndWithLives(bool isLast) noexcept {
  using Clock = std::chrono::steady_clock;
  const auto begin = Clock::now();
  if (notes_ == nullptr || end_ != EndedBy::Lives || notes_->IsBusy() || !notes_->HasNews() ||
      !(isLast || rewriting_.IsDue(begin))) {
    return;
  }
  End();
  if (!outcome_.isWritten) {
    notes_->TellProblem(outcome_.problem);
  }
  rewriting_.Took(begin, Clock::now());
}

const recording::Outcome* Run::End() noexcept {
  if (notes_ == nullptr) {
    return nullptr;
  }
  outcome_ = notes_->Finish();
  if (!outcome_.isWritten) {
    Tell(outcome_.problem);
  }
  return &outcome_;
}

Run& TheRun() {
  static Run run;
  return run;
}

void LastObjectGone() {
  TheRun().EndWithLives(false);
}

// Windows ends all other threads before it calls DllMain at the end of the process, and holds the loader lock during
// the call. ProcessEnds therefore uses only the process's own memory and files, and calls no object of another
// component: answers that the recorder has not read by then are missing from the file.
//
// No file is written if Windows has ended a thread in the middle of a function of Notes, because the recorded data may
// then be inconsistent.
void ProcessEnds() {
  TheRun().EndWithLives(true);
}

}  // namespace wendrill::recorder
