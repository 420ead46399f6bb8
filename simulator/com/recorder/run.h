// The recorder of this process: its wrappers, and the recording when one is asked for.
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

// Who decides when the recording ends: the program that runs a script, or the life of the objects and the process.
enum class EndedBy { Program, Lives };

class Run {
 public:
  // The wrapper of each object of the terminal that has one now, not AddRef'ed, by the object's identity.
  std::unordered_map<IUnknown*, Wrapper*> wrappers;

  // What the recording is told; null when nothing is recorded.
  Notes* Recording() { return notes_.get(); }

  // Begins the recording that the environment asks for, once in a process. Raises 5 for a variable that means nothing,
  // 58 when the file exists and 75 when it cannot be written.
  void StartOfEnvironment();
  void Start(recording::Settings settings, EndedBy end);

  // Of a recording that ends with the life of the objects, when anything happened since it was written: writes the
  // file, if that is due or `isLast`. A problem is told in a file beside it.
  void EndWithLives(bool isLast) noexcept;
  // Writes the file of any recording; null when nothing is recorded.
  const recording::Outcome* End() noexcept;

 private:
  std::unique_ptr<Notes> notes_;
  EndedBy end_ = EndedBy::Lives;
  bool isDecided_ = false;  // whether anything is recorded
  recording::Rewriting rewriting_;
  recording::Outcome outcome_;
};

// Whether the environment asks for whole PNRs (QUILLET_RECORD_PNR). Raises 5 for a word that means nothing.
bool ReadsWholePnrs();

// Created with the first object and kept until the process ends.
Run& TheRun();

// Called when the last object has been released.
void LastObjectGone();

// Called in DllMain when the process ends.
void ProcessEnds();

}  // namespace wendrill::recorder
