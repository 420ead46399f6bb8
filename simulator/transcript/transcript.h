// The transcript: a trace as one page of HTML, for those who must see what a script did and what the host showed.
#pragma once

#include <iosfwd>

namespace wendrill::transcript {

// Writes the page of a trace: the journal and every screen, as one file that loads nothing.
//
// `trace` is JSON Lines in UTF-8, one event a line (docs/trace.md); members and kinds that are not known are shown too.
// A line that is no object of JSON, as the last one of a run that was cut off, is told on the page with its number,
// counted from 1, and skipped. The page holds a trace without any line as well, and several runs one after another.
//
// Errors of the streams are left in their state.
void WriteTranscript(std::istream& trace, std::ostream& page);

}  // namespace wendrill::transcript
