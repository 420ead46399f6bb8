// Port to the closed text helper: only what the library cannot know by itself. Cutting text is the library's own.
#pragma once

#include <cstdint>
#include <string>

#include "common/value.h"

namespace wendrill {

class TextHelperService {
 public:
  virtual ~TextHelperService() = default;

  // The two readiness questions: 0 when the terminal cannot take an alarm lock.
  virtual std::int32_t TerminalReady() = 0;
  virtual std::int32_t HostReady() = 0;

  // Release, "P", build: 3.0P1.
  virtual std::u16string TerminalVersion() = 0;

  // The text that stands under a date key for a date, or for a date's text.
  virtual std::u16string HostDateText(const Value& date) = 0;
};

}  // namespace wendrill
