// The recorded calls as the text of a scenario.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "recording/calls.h"
#include "recording/recording_hiding.h"
#include "recording/story.h"

namespace wendrill::recording {

// Everything but the comments.
std::string ScenarioText(const Calls& calls, const Story& story, RecordingHiding& hiding);

// What a recording begins with: what it is, what is not hidden, what it cannot reproduce, one line each.
std::string Heading(const std::set<redaction::Kind>& kept, std::span<const std::u16string> notReproduced);

// What begins a line that tells what a recording cannot reproduce.
inline constexpr std::string_view kNotReproduced = "# not reproduced: ";

}  // namespace wendrill::recording
