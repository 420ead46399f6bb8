// Port to the alarm component of newer terminal releases. The caller creates the component for one call and drops it.
#pragma once

#include "common/value.h"

namespace wendrill {

class AlarmManager {
 public:
  virtual ~AlarmManager() = default;

  // Locks (true) or unlocks (false) the terminal's alarm. Returns the component's numeric code unconverted: the caller
  // narrows it to 16 bits and decides which codes are failures. Raises 438 when the component of this terminal release
  // has no such method, and otherwise the component's own error.
  virtual Value LockAlarm(bool lock) = 0;
};

}  // namespace wendrill
