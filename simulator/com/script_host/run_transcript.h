// The page of a run (docs/transcript.md), made of its trace when the run has ended.
#pragma once

#include <string>

#include "command_line.h"

namespace wendrill::script_host {

// Before the run: removes the page of an earlier one. Throws UsageError when the page cannot be written.
void PrepareTranscriptOf(const CommandLine& line);

// After it. Does nothing unless the command line asks for a page. A trace that only serves the page is removed. Returns
// what went wrong, for a person; empty when all is well. Throws nothing.
std::wstring WriteTranscriptOf(const CommandLine& line);

// After a crash, when nothing of the process can be relied on, no page is written and the trace stays. Returns where it
// is, for a person; empty unless the command line asks for a page.
std::wstring TraceLeftFor(const CommandLine& line);

}  // namespace wendrill::script_host
