// The simulated alarm component and the simulated text helper. Both answer from the scenario that was loaded last.
#pragma once

#include <cstdint>
#include <string>

#include "core/gate.h"
#include "toolkit/alarm_manager.h"
#include "toolkit/text_helper_service.h"

namespace wendrill::simulator {

class World;

class SimulatedAlarmManager final : public AlarmManager {
 public:
  explicit SimulatedAlarmManager(World& world);

  // Raises 438 (member not supported) when the scenario's [alarm] has `method = false`.
  Value LockAlarm(bool lock) override;

 private:
  World& world_;
  LiveMark live_;
};

class SimulatedTextHelper final : public TextHelperService {
 public:
  explicit SimulatedTextHelper(World& world);

  std::int32_t TerminalReady() override;
  std::int32_t HostReady() override;
  std::u16string TerminalVersion() override;
  std::u16string HostDateText(const Value& date) override;

 private:
  World& world_;
  LiveMark live_;
};

}  // namespace wendrill::simulator
