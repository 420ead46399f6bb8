#include "run_transcript.h"

#include <exception>
#include <filesystem>
#include <fstream>

#include "text_file.h"
#include "transcript/transcript.h"

namespace wendrill::script_host {

void PrepareTranscriptOf(const CommandLine& line) {
  if (!line.transcript.empty()) {
    WriteText(line.transcript, {});
    std::error_code failure;
    std::filesystem::remove(line.transcript, failure);
  }
}

std::wstring WriteTranscriptOf(const CommandLine& line) {
  if (line.transcript.empty()) {
    return {};
  }
  bool isWritten = false;
  try {
    std::ifstream trace(line.trace.file, std::ios::binary);
    std::ofstream page(std::filesystem::path(line.transcript), std::ios::binary | std::ios::trunc);
    if (trace) {
      transcript::WriteTranscript(trace, page);
    }
    page.close();
    isWritten = trace.eof() && !trace.bad() && page;
  } catch (const std::exception&) {  // for example bad_alloc: no memory for the page of a very long trace
    isWritten = false;
  }
  if (!isWritten) {
    return L"the transcript could not be written to its end: " + line.transcript + L"; the trace is in " +
           line.trace.file.wstring();
  }
  if (line.traceIsForTranscript) {
    std::error_code failure;
    std::filesystem::remove(line.trace.file, failure);  // has no effect when the simulator still has the file open
  }
  return {};
}

std::wstring TraceLeftFor(const CommandLine& line) {
  return line.transcript.empty()
             ? std::wstring()
             : L"there is no transcript; \"wendrill transcript\" makes one of the trace, " + line.trace.file.wstring();
}

}  // namespace wendrill::script_host
