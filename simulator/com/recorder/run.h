// The state of the recorder in this process: its wrappers, and the recording if one was requested.
#pragma once

#include <ole2.h>
#include <windows.h>

#include <memory>
#include <unordered_map>

#include "com/recorder/notes.h"
#include "recording/recording.h"
#include "recording/rewriting.h"

namespace wendrill::recorder {

class Wrapper;

// What causes the file of a recording to be written. Program: the script host calls End. Lives, for a recording that
// QUILLET_RECORD requests: the last object of this DLL is released, or the process ends.
enum class EndedBy { Program, Lives };

class Run {
 public:
  // The existing wrappers, by the identity (IUnknown) of the terminal's object. Neither pointer is AddRef'ed.
  std::unordered_map<IUnknown*, Wrapper*> wrappers;

  // The object that records calls; null when nothing is recorded.
  Notes* Recording() { return notes_.get(); }

  // Starts the recording that the environment variables request; does nothing when QUILLET_RECORD is not set. Raises 5
  // (invalid argument) when a variable has an invalid value, 58 (file already exists) when the file exists and 75 (path
  // or file access error) when the file cannot be written. Does nothing after Start, or after an earlier call of this
  // function that did not raise.
  void StartOfEnvironment();
  void Start(recording::Settings settings, EndedBy end);

  // Writes the file of a recording that was started with EndedBy::Lives. When the file cannot be written, writes the
  // reason to the ".error" file in the folder of the recording. `isLast` means that the process is ending, so that the
  // file cannot be written later. Does nothing in each of these cases:
  // - There is no recording with EndedBy::Lives.
  // - Nothing was recorded since the file was last written.
  // - A function of Notes is running.
  // - `isLast` is false, and Rewriting::IsDue returns false because the last writing was too recent.
  void EndWithLives(bool isLast) noexcept;
  // Writes the file of the recording, whether EndedBy is Program or Lives. Returns the outcome, valid until the file is
  // next written; null when nothing is recorded.
  const recording::Outcome* End() noexcept;

 private:
  std::unique_ptr<Notes> notes_;
  EndedBy end_ = EndedBy::Lives;
  bool isDecided_ = false;  // whether the decision to record or not has been made
  recording::Rewriting rewriting_;
  recording::Outcome outcome_;
};

// Whether all collections of a PNR are read when the PNR is retrieved. True when the environment variable
// QUILLET_RECORD_PNR is "eager" or not set, false when it is "lazy". Raises 5 (invalid argument) for any other value.
bool ReadsWholePnrs();

// The recorder of this process. It is created by the first call and kept until the process ends.
Run& TheRun();

// Writes the file of a recording that the environment variables requested (EndedBy::Lives), if calls were recorded
// since the last writing and Rewriting::IsDue returns true. To be called when the last object of this DLL is released.
void LastObjectGone();

// Writes the file of a recording that the environment variables requested (EndedBy::Lives), if calls were recorded
// since the last writing. Calls no object of another component, because DllMain must not call such an object when the
// process ends.
void ProcessEnds();

}  // namespace wendrill::recorder
