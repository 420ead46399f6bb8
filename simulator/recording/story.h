// The recorded calls with everything hidden that must not be written: what the scenario is made of, and what its
// rehearsal must bring again.
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

// An entry and the answer to it.
struct Exchange {
  const ToldEntry* told = nullptr;
  std::u16string session;
  std::u16string entry;        // as hidden
  std::u16string form;         // of the entries that get this answer
  std::u16string_view buffer;  // once it was full
  std::u16string_view text;    // the response's own; the buffer where it was not read
  std::int64_t late = 0;       // how many readings found the buffer empty before
  bool never = false;          // it never filled

  std::int32_t Error() const { return told->error; }

  // Whether other entries have this form, too.
  bool IsHidden() const { return form != told->entry; }
};

// A PNR that was read.
struct Reading {
  const ToldPnr* told = nullptr;
  std::u16string session;
  std::u16string entry;  // as hidden; empty for the PNR on display
  std::shared_ptr<const PnrContent> content;

  bool IsOfDisplay() const { return !told->entry.has_value(); }
  std::int32_t Error() const { return told->error; }

  // A scenario's PNR is retrieved by its entries to the letter.
  bool IsHidden() const { return told->entry && entry != *told->entry; }
};

using Event = std::variant<Exchange, Reading>;

struct Story {
  std::vector<std::u16string> sessions;  // running, in order
  std::vector<Event> events;
};

// Hides everything. The story refers to the calls and to what is kept in `hiding`.
Story StoryOf(const Calls& calls, RecordingHiding& hiding);

}  // namespace wendrill::recording
