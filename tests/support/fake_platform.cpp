#include "support/fake_platform.h"

#include <gtest/gtest.h>

#include <utility>

#include "common/error.h"

namespace wendrill::testing {
namespace {

class FakeAlarmManager final : public AlarmManager {
 public:
  FakeAlarmManager(FakeTerminalRef terminal, std::function<Value(bool)> lockAlarm)
      : terminal_(std::move(terminal)), lockAlarm_(std::move(lockAlarm)) {
    ++terminal_->Calls()->liveObjects;
  }
  ~FakeAlarmManager() override { --terminal_->Calls()->liveObjects; }
  FakeAlarmManager(const FakeAlarmManager&) = delete;
  FakeAlarmManager& operator=(const FakeAlarmManager&) = delete;

  Value LockAlarm(bool lock) override {
    terminal_->Note(lock ? "alarm lock" : "alarm unlock");
    terminal_->Calls()->Enter("alarm.LockAlarm");
    return lockAlarm_(lock);
  }

 private:
  FakeTerminalRef terminal_;
  std::function<Value(bool)> lockAlarm_;
};

// Answers as the platform is scripted at the moment of the question.
class FakeTextHelper final : public TextHelperService {
 public:
  FakeTextHelper(const FakePlatform& platform, CallLogRef calls) : platform_(platform), calls_(std::move(calls)) {}

  std::int32_t TerminalReady() override {
    calls_->Enter("helper.TerminalReady");
    return platform_.terminalReady;
  }
  std::int32_t HostReady() override {
    calls_->Enter("helper.HostReady");
    return platform_.hostReady;
  }
  std::u16string TerminalVersion() override {
    calls_->Enter("helper.TerminalVersion");
    return platform_.terminalVersion;
  }
  std::u16string HostDateText(const Value& date) override {
    calls_->Enter("helper.HostDateText");
    if (!platform_.hostDateText) {
      ADD_FAILURE() << "unexpected call: helper.HostDateText";
      throw ForeignError();
    }
    return platform_.hostDateText(date);
  }

 private:
  const FakePlatform& platform_;
  CallLogRef calls_;
};

}  // namespace

std::shared_ptr<HostSessionList> FakePlatform::CreateSessionList() {
  terminal_->Calls()->Enter("create session list");
  return MakeFakeSessionList(terminal_);
}

std::shared_ptr<HostSession> FakePlatform::CreateSession() {
  terminal_->Calls()->Enter("create session");
  return MakeFakeSession(terminal_, u"created");
}

ObjectRef FakePlatform::CreatePnr() {
  terminal_->Calls()->Enter("create PNR");
  return makePnr ? makePnr() : FakeObject::Make(terminal_->Calls(), "PNR");
}

std::shared_ptr<AlarmManager> FakePlatform::CreateAlarmManager() {
  terminal_->Calls()->Enter("create alarm manager");
  if (!lockAlarm) {
    Raise(RunTimeError::CannotCreateObject);
  }
  return std::make_shared<FakeAlarmManager>(terminal_, lockAlarm);
}

std::shared_ptr<TextHelperService> FakePlatform::CreateTextHelper() {
  terminal_->Calls()->Enter("create text helper");
  return std::make_shared<FakeTextHelper>(*this, terminal_->Calls());
}

ParamBagRef FakePlatform::CreateParamBag() {
  terminal_->Calls()->Enter("create bag");
  lastBag = std::make_shared<FakeBag>(terminal_->Calls());
  return lastBag;
}

FakeDesk::FakeDesk() {
  terminal->Accepting(kbClear);
  terminal->hostConnection = FakeObject::Make(calls, "connection");
  platform.lockAlarm = [](bool /*lock*/) { return Value(std::int16_t{0}); };
  clock.onSleep = [this](std::chrono::milliseconds duration) {
    terminal->Note("sleep " + std::to_string(duration.count()));
  };
}

std::string FakeDesk::Journal() const {
  std::string joined;
  for (const auto& line : terminal->Journal()) {
    joined += (joined.empty() ? "" : ", ") + line;
  }
  return joined;
}

}  // namespace wendrill::testing
