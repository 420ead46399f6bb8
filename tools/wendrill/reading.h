// Reads all displays of a source with several threads and writes what comes out.
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
  Selection selection = {};  // of exactly one kind for CSV
  unsigned threads = 1;
  bool isOrdered = true;  // whether displays come out in the order in which they went in
  OnError onError = OnError::Keep;
};

struct ReadingTotals {
  std::uint64_t displays = 0;
  std::uint64_t bad = 0;
  bool outputFailed = false;  // other than by a closed pipe
};

// `onProgress` is called now and then, by one thread at a time. Bad displays that the form of the output has no place
// for are told on standard error.
ReadingTotals ReadDisplays(DisplaySource& source, const ReadingOptions& options,
                           const std::function<void(const ReadingTotals&)>& onProgress);

// A scenario for the simulator with one PNR for each display; the first is on display. Bad displays become comments.
ReadingTotals WriteScenario(DisplaySource& source);

// Writes to standard output; false when no more can be written, and `failed` says whether that is a failure.
bool WriteOut(const std::string& text, bool& failed);

}  // namespace wendrill::tool
