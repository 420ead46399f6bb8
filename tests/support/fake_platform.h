// Everything that the library has made by others, over one scripted terminal; and a whole desk for one test.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "common/module_state.h"
#include "support/call_log.h"
#include "support/fake_bag.h"
#include "support/fake_clock.h"
#include "support/fake_object.h"
#include "support/fake_terminal.h"
#include "support/fake_text_forms.h"
#include "toolkit/platform.h"

namespace wendrill::testing {

class FakePlatform final : public Platform {
 public:
  explicit FakePlatform(FakeTerminalRef terminal) : terminal_(std::move(terminal)) {}

  // --- The script ---

  // Makes each new PNR object. Unscripted, it has no member at all.
  std::function<ObjectRef()> makePnr;

  // What the alarm component does; without it the class cannot be created (429).
  std::function<Value(bool lock)> lockAlarm;

  // What the text helper answers.
  std::int32_t terminalReady = 1;
  std::int32_t hostReady = 1;
  std::u16string terminalVersion = u"3.0P1";
  std::function<std::u16string(const Value&)> hostDateText;  // unscripted: the test fails

  // The bag returned last.
  FakeBagRef lastBag;

  std::shared_ptr<HostSessionList> CreateSessionList() override;
  std::shared_ptr<HostSession> CreateSession() override;
  ObjectRef CreatePnr() override;
  std::shared_ptr<AlarmManager> CreateAlarmManager() override;
  std::shared_ptr<TextHelperService> CreateTextHelper() override;
  ParamBagRef CreateParamBag() override;

 private:
  FakeTerminalRef terminal_;
};

// A desk: terminal, clock, message queue, platform, regional settings and the module's state, wired together. The clear
// key is accepted, an alarm component is there and answers 0, one session named A runs.
struct FakeDesk {
  FakeDesk();

  // The calls that reached the terminal, joined with ", ": "key 322, send ER".
  std::string Journal() const;

  CallLogRef calls = std::make_shared<CallLog>();
  FakeTerminalRef terminal = std::make_shared<FakeTerminal>(calls);
  FakeClock clock;
  FakePump pump{clock};
  FakePlatform platform{terminal};
  FakeTextForms texts;
  ModuleState module{platform, clock, pump, texts};
};

}  // namespace wendrill::testing
