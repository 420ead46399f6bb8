// The transcript: a trace as one HTML page, from which a reader sees what a script did and what the host showed.
#pragma once

#include <iosfwd>

namespace wendrill::transcript {

// Writes the page of a trace: the journal and every screen, in one file that loads no other file.
//
// `trace` is JSON Lines in UTF-8, one event per line (docs/trace.md). Unknown kinds and members are shown, too. Blank
// lines are ignored. A line that is not a JSON object, such as the last line of a run that was cut off, is skipped; the
// page shows the number of the skipped line, counted from 1, and the beginning of its text. The trace may be empty, or
// contain several runs one after another.
//
// Errors of the streams are not raised: the caller finds them in the state of the streams.
void WriteTranscript(std::istream& trace, std::ostream& page);

}  // namespace wendrill::transcript
