// Writes the recorded calls as the text of a scenario.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "recording/calls.h"
#include "recording/recording_hiding.h"
#include "recording/story.h"

namespace wendrill::recording {

// Returns the text of the scenario without the comments at its top; Heading returns these comments.
std::string ScenarioText(const Calls& calls, const Story& story, RecordingHiding& hiding);

// Returns the comments at the top of a recording: a line that says what the file is, a line with the kinds of personal
// data that are not hidden (no line when all are hidden), and one line for each sentence of `notReproduced`.
std::string Heading(const std::set<redaction::Kind>& kept, std::span<const std::u16string> notReproduced);

// The prefix of each comment line about something that a replay does not reproduce.
inline constexpr std::string_view kNotReproduced = "# not reproduced: ";

}  // namespace wendrill::recording
