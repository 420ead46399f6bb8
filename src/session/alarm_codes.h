// The codes of LockUnLockAlarm that callers distinguish. 0, 1 and 2 mean success; the meaning of every other code is
// the alarm component's.
#pragma once

#include <cstdint>

namespace wendrill {

inline constexpr std::int16_t kAlarmDone = 0;
inline constexpr std::int16_t kScreenNotCleared = -7;
inline constexpr std::int16_t kTerminalNotReady = -8;

// Raises `number` for a code that means failure: a negative code other than "terminal not ready".
void RequireAlarmCode(std::int16_t code, std::int32_t number);

}  // namespace wendrill
