// Port to the closed text helper, for what only the terminal knows. Text is cut by common/text.h, not by this
// component.
//
// Every method may raise the component's own error; 438 for a member that its release does not have.
#pragma once

#include <cstdint>
#include <string>

#include "common/value.h"

namespace wendrill {

class TextHelperService {
 public:
  virtual ~TextHelperService() = default;

  // Whether the terminal and the host are ready for an alarm lock: 0 means not ready, any other number ready.
  virtual std::int32_t TerminalReady() = 0;
  virtual std::int32_t HostReady() = 0;

  // The terminal's version: release, "P", build, as in 3.0P1. Other forms occur: the caller parses the string.
  virtual std::u16string TerminalVersion() = 0;

  // The string to store under a date key: DDMMMYY in capitals (12JUN08) for a date value or a date in string form. Any
  // other value comes back in its string form.
  virtual std::u16string HostDateText(const Value& date) = 0;
};

}  // namespace wendrill
