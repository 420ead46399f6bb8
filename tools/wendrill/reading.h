// Reads all displays of a source, with several threads, and writes the results to standard output.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "display_source.h"
#include "output.h"

namespace wendrill::tool {

enum class OutputForm { Json, JsonLines, Csv };
enum class OnError { Keep, Skip, Stop };

struct ReadingOptions {
  OutputForm out = OutputForm::JsonLines;
  Keys keys = Keys::Plain;
  Selection selection = {};  // REQUIRES: exactly one kind when `out` is Csv
  unsigned threads = 1;
  bool isOrdered = true;  // whether the output has the displays in the order of the input
  OnError onError = OnError::Keep;
};

struct ReadingTotals {
  std::uint64_t displays = 0;
  std::uint64_t bad = 0;
  bool outputFailed = false;  // whether writing failed; a closed pipe is not a failure
};

// Reads all displays and writes their records. Calls `onProgress` after each batch is written, never from two threads
// at once. An error of a display is reported on standard error when the output does not contain it: with OnError::Stop,
// and with OnError::Keep for CSV.
ReadingTotals ReadDisplays(DisplaySource& source, const ReadingOptions& options,
                           const std::function<void(const ReadingTotals&)>& onProgress);

// Writes a scenario for the simulator, with one PNR for each display; the first PNR is on display. For a display that
// cannot be read, the scenario has a comment with the error, which is also reported on standard error.
ReadingTotals WriteScenario(DisplaySource& source);

// Writes to standard output. Returns false when standard output accepts no more text. Sets `failed` to true in that
// case, unless the reason is a closed pipe.
bool WriteOut(const std::string& text, bool& failed);

}  // namespace wendrill::tool
