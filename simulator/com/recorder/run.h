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

// When the file is written. Program: when the script host calls End. Lives: when the last object is released, and when
// the process ends.
enum class EndedBy { Program, Lives };

class Run {
 public:
  // The existing wrappers, by the identity (IUnknown) of the terminal's object. Neither pointer is AddRef'ed.
  std::unordered_map<IUnknown*, Wrapper*> wrappers;

  // The object that records calls; null when nothing is recorded.
  Notes* Recording() { return notes_.get(); }

  // Starts the recording that the environment variables request, at most once in a process. Raises 5 when a variable
  // has an invalid value, 58 when the file exists and 75 when the file cannot be written.
  void StartOfEnvironment();
  void Start(recording::Settings settings, EndedBy end);

  // Writes the file of a recording with EndedBy::Lives. Does nothing when nothing was recorded since the file was last
  // written, and while a function of Notes is running. Without `isLast`, writes the file only if that is due
  // (recording::Rewriting). When the file cannot be written, writes the reason into the ".error" file beside it.
  void EndWithLives(bool isLast) noexcept;
  // Writes the file, whatever its EndedBy is. Returns the outcome, valid until the next End; null when nothing is
  // recorded.
  const recording::Outcome* End() noexcept;

 private:
  std::unique_ptr<Notes> notes_;
  EndedBy end_ = EndedBy::Lives;
  bool isDecided_ = false;  // whether the decision to record or not has been made
  recording::Rewriting rewriting_;
  recording::Outcome outcome_;
};

// Whether all collections of a PNR are read when the PNR is retrieved. True when the environment variable
// QUILLET_RECORD_PNR is "eager" or not set, false when it is "lazy". Raises 5 for any other value.
bool ReadsWholePnrs();

// The recorder of this process. It is created by the first call and kept until the process ends.
Run& TheRun();

// Called when the last object of this DLL is released.
void LastObjectGone();

// Called from DllMain when the process ends.
void ProcessEnds();

}  // namespace wendrill::recorder
