// Port to the alarm component of newer terminal releases. The caller creates the component for a single call and
// releases it after that call.
#pragma once

#include "common/value.h"

namespace wendrill {

class AlarmManager {
 public:
  virtual ~AlarmManager() = default;

  // Locks (true) or unlocks (false) the terminal's alarm. Returns the component's numeric code without conversion: the
  // caller narrows the code to 16 bits and decides which codes are failures. Raises 438 (no such member) when the
  // component of this terminal release has no method LockAlarm, and the component's own error when the method fails.
  virtual Value LockAlarm(bool lock) = 0;
};

}  // namespace wendrill
