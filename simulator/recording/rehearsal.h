// Replays the recorded calls against the finished scenario, and reports every difference between the simulator's
// answers and the recorded answers. The rehearsal sends the original entries of the program, which are not hidden. The
// answers are compared with personal data hidden.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "recording/recording_hiding.h"
#include "recording/story.h"

namespace wendrill::recording {

// Returns one sentence for each difference, without duplicates or line breaks, and with personal data hidden. When the
// result is empty, the scenario gives the terminal's answers, and a strict run of the recorded calls reports nothing.
std::vector<std::u16string> Rehearse(std::string_view scenario, const Story& story, RecordingHiding& hiding);

}  // namespace wendrill::recording
