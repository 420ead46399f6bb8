// The transcript of a run: an HTML page that is made from the trace after the run (docs/transcript.md).
#pragma once

#include <string>

#include "command_line.h"

namespace wendrill::script_host {

// Call before the run. Removes the page of an earlier run. Throws UsageError when the page cannot be written.
void PrepareTranscriptOf(const CommandLine& line);

// Call after the run. Writes the page; does nothing when the command line asks for none. Then deletes the trace, if it
// was written only for the page. Returns an error message for a person; empty when the page has been written or is not
// wanted. Throws nothing.
std::wstring WriteTranscriptOf(const CommandLine& line);

// Call after a crash. No page is written then, because the crashed process may be damaged; the trace is kept. Returns a
// message that names the file of the trace; empty when the command line asks for no page.
std::wstring TraceLeftFor(const CommandLine& line);

}  // namespace wendrill::script_host
