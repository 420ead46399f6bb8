// Port to the text helper, a component of the terminal. The library asks the text helper only for information that no
// other component has. To cut texts, the library uses common/text.h and not the text helper.
//
// Every method may raise the component's own error. Every method raises 438 (no such member) when the installed release
// of the component does not have the member.
#pragma once

#include <cstdint>
#include <string>

#include "common/value.h"

namespace wendrill {

class TextHelperService {
 public:
  virtual ~TextHelperService() = default;

  // TerminalReady returns whether the terminal is ready for an alarm lock, and HostReady whether the host is ready: 0
  // means not ready, any other number means ready.
  virtual std::int32_t TerminalReady() = 0;
  virtual std::int32_t HostReady() = 0;

  // The version of the terminal: the release, "P" and the build, as in 3.0P1. The string may also have another format,
  // so the caller must check it.
  virtual std::u16string TerminalVersion() = 0;

  // The date in the host's form DDMMMYY, in capitals (12JUN08). `date` is a date value or the string form of a date;
  // any other value is returned in its own string form. The library stores the result in parameter bags, under the keys
  // for dates.
  virtual std::u16string HostDateText(const Value& date) = 0;
};

}  // namespace wendrill
