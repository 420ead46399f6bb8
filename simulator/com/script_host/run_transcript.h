// The transcript of a run: an HTML page that is made from the trace after the run (docs/transcript.md).
#pragma once

#include <string>

#include "command_line.h"

namespace wendrill::script_host {

// Removes the page of an earlier run; does nothing when the command line asks for no page. Throws UsageError when the
// page cannot be written. Call before the run.
void PrepareTranscriptOf(const CommandLine& line);

// Writes the page from the trace; does nothing when the command line asks for no page. After the page has been written,
// deletes the trace, unless a trace was asked for as well. Returns an error message for a person when the page could
// not be written; otherwise an empty string. Throws nothing. Call after the run, or when the time limit is about to
// end the process.
std::wstring WriteTranscriptOf(const CommandLine& line);

// Returns a message that names the file of the trace, for a run that crashed; empty when the command line asks for no
// page. After a crash no page is written, because the crashed process may be damaged; the trace is kept, and a page can
// be made from the trace later.
std::wstring TraceLeftFor(const CommandLine& line);

}  // namespace wendrill::script_host
