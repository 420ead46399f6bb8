// Plays the recorded calls against the finished scenario, with the entries as they were sent, and tells every
// difference between what the simulator answers and what was recorded, both as hidden.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "recording/recording_hiding.h"
#include "recording/story.h"

namespace wendrill::recording {

// Sentences without a line break, each once, with everything hidden. Empty: the scenario says the same as the terminal,
// and a strict run of the same calls finds nothing to tell.
std::vector<std::u16string> Rehearse(std::string_view scenario, const Story& story, RecordingHiding& hiding);

}  // namespace wendrill::recording
