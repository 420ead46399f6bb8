// The ports to the desktop, implemented over Windows: the registered components, the clock, the message queue.
#pragma once

#include "com/adapters/foreign_object.h"
#include "toolkit/clock.h"
#include "toolkit/message_pump.h"
#include "toolkit/platform.h"

namespace wendrill::com {

// Creates the terminal's components by their ProgIDs.
class RegisteredComponents final : public Platform {
 public:
  explicit RegisteredComponents(KnownNames& names) : names_(names) {}

  std::shared_ptr<HostSessionList> CreateSessionList() override;
  std::shared_ptr<HostSession> CreateSession() override;
  ObjectRef CreatePnr() override;
  std::shared_ptr<AlarmManager> CreateAlarmManager() override;
  std::shared_ptr<TextHelperService> CreateTextHelper() override;
  ParamBagRef CreateParamBag() override;

 private:
  KnownNames& names_;
};

class LocalClock final : public Clock {
 public:
  double SecondsSinceMidnight() override;
  void Sleep(std::chrono::milliseconds duration) override;
};

class ThreadMessages final : public MessagePump {
 public:
  bool RunOnce() override;
};

}  // namespace wendrill::com
