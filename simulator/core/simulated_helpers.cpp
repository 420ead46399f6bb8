#include "core/simulated_helpers.h"

#include "common/error.h"
#include "common/host_date.h"
#include "core/traced.h"
#include "core/world.h"

namespace wendrill::simulator {

SimulatedAlarmManager::SimulatedAlarmManager(World& world) : world_(world), live_(world.LiveCount()) {}

Value SimulatedAlarmManager::LockAlarm(bool lock) {
  return Traced(world_.Tracing(), trace::AlarmSet{.lock = lock}, [&](trace::AlarmSet&) -> Value {
    world_.Record().Alarm(lock);
    world_.EnterUntraced(u"LockAlarm");
    const ScenarioAlarm& alarm = world_.InForce()->alarm;
    if (!alarm.method) {
      Fail(static_cast<std::int32_t>(RunTimeError::MemberNotSupported),
           u"The scenario's alarm has no method LockAlarm.");
    }
    return alarm.code;
  });
}

SimulatedTextHelper::SimulatedTextHelper(World& world) : world_(world), live_(world.LiveCount()) {
  world_.InForce();
}

std::int32_t SimulatedTextHelper::TerminalReady() {
  world_.Enter(u"TerminalReady");
  return world_.InForce()->terminal.terminalReady;
}

std::int32_t SimulatedTextHelper::HostReady() {
  world_.Enter(u"HostReady");
  return world_.InForce()->terminal.hostReady;
}

std::u16string SimulatedTextHelper::TerminalVersion() {
  world_.Enter(u"TerminalVersion");
  return world_.InForce()->terminal.version;
}

std::u16string SimulatedTextHelper::HostDateText(const Value& date) {
  world_.Enter(u"HostDateText");
  return HostDateTextOf(date, world_.Texts());
}

}  // namespace wendrill::simulator
