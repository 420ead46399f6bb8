// The recorded calls with personal data hidden. The scenario is created from this story, and the rehearsal of the
// scenario must reproduce the story.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "recording/calls.h"
#include "recording/pnr_contents.h"
#include "recording/recording_hiding.h"

namespace wendrill::recording {

// An entry that the program sent, and the answer to that entry.
struct Exchange {
  const ToldEntry* told = nullptr;
  std::u16string session;
  std::u16string entry;  // with personal data hidden
  std::u16string form;   // the pattern of the entries that get this answer; see RecordingHiding::FormOf
  // The first buffer that was not empty. Empty in two cases: all readings were empty, or the program read an empty
  // buffer and only the recorder later read a filled one.
  std::u16string_view buffer;
  // The response's property Text, personal data hidden. Equal to `buffer` when Text was not read or `buffer` is empty.
  std::u16string_view text;
  std::int64_t late = 0;  // how often the program found the buffer empty before it filled; 0 if `buffer` is empty
  bool never = false;     // `buffer` is empty, no event came, and Send succeeded

  std::int32_t Error() const { return told->error; }

  // Whether `form` is a `like` pattern, which also matches other entries. False: `form` is the entry itself.
  bool IsHidden() const { return form != told->entry; }
};

// A retrieval of a PNR.
struct Reading {
  const ToldPnr* told = nullptr;
  std::u16string session;
  std::u16string entry;  // with personal data hidden; empty for the PNR on display
  std::shared_ptr<const PnrContent> content;

  bool IsOfDisplay() const { return !told->entry.has_value(); }
  std::int32_t Error() const { return told->error; }

  // Whether hiding changed the entry. A retrieval by such an entry cannot be reproduced, because a scenario finds a PNR
  // only by its exact entries.
  bool IsHidden() const { return told->entry && entry != *told->entry; }
};

using Event = std::variant<Exchange, Reading>;

struct Story {
  std::vector<std::u16string> sessions;  // the names of the sessions, with personal data hidden, each once
  std::vector<Event> events;
};

// Creates the story of the calls, with personal data hidden. REQUIRES: `calls` and `hiding` outlive the story, which
// contains pointers and views into both.
Story StoryOf(const Calls& calls, RecordingHiding& hiding);

}  // namespace wendrill::recording
