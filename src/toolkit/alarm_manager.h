// Port to the alarm component of newer terminal releases.
#pragma once

#include "common/value.h"

namespace wendrill {

class AlarmManager {
 public:
  virtual ~AlarmManager() = default;

  // Locks (True) or unlocks (False) the terminal's alarm; returns the component's numeric code as it came. Fails with
  // 438 when the component has no such method.
  virtual Value LockAlarm(bool lock) = 0;
};

}  // namespace wendrill
