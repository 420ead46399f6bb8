#include "support/watched_platform.h"

#include <utility>

namespace wendrill::testing {
namespace {

class WatchedAlarm final : public AlarmManager {
 public:
  WatchedAlarm(const WatchedPlatform& platform, std::shared_ptr<AlarmManager> alarm)
      : platform_(platform), alarm_(std::move(alarm)) {}

  Value LockAlarm(bool lock) override {
    Value code = alarm_->LockAlarm(lock);
    return platform_.lockAlarm ? platform_.lockAlarm(lock) : code;
  }

 private:
  const WatchedPlatform& platform_;
  std::shared_ptr<AlarmManager> alarm_;
};

class WatchedTextHelper final : public TextHelperService {
 public:
  WatchedTextHelper(const WatchedPlatform& platform, std::shared_ptr<TextHelperService> helper)
      : platform_(platform), helper_(std::move(helper)) {}

  std::int32_t TerminalReady() override { return helper_->TerminalReady(); }
  std::int32_t HostReady() override { return helper_->HostReady(); }
  std::u16string TerminalVersion() override { return helper_->TerminalVersion(); }
  std::u16string HostDateText(const Value& date) override {
    std::u16string text = helper_->HostDateText(date);
    return platform_.hostDateText ? platform_.hostDateText(date) : text;
  }

 private:
  const WatchedPlatform& platform_;
  std::shared_ptr<TextHelperService> helper_;
};

}  // namespace

std::shared_ptr<HostSessionList> WatchedPlatform::CreateSessionList() {
  world_.Enter(u"CreateSessionList");
  return world_.Ports().CreateSessionList();
}

std::shared_ptr<HostSession> WatchedPlatform::CreateSession() {
  world_.Enter(u"CreateSession");
  return world_.Ports().CreateSession();
}

ObjectRef WatchedPlatform::CreatePnr() {
  world_.Enter(u"CreatePnr");
  return makePnr ? makePnr() : world_.Ports().CreatePnr();
}

std::shared_ptr<AlarmManager> WatchedPlatform::CreateAlarmManager() {
  world_.Enter(u"CreateAlarmManager");
  return std::make_shared<WatchedAlarm>(*this, world_.Ports().CreateAlarmManager());
}

std::shared_ptr<TextHelperService> WatchedPlatform::CreateTextHelper() {
  world_.Enter(u"CreateTextHelper");
  return std::make_shared<WatchedTextHelper>(*this, world_.Ports().CreateTextHelper());
}

ParamBagRef WatchedPlatform::CreateParamBag() {
  world_.Enter(u"CreateParamBag");
  return makeBag ? makeBag() : world_.Ports().CreateParamBag();
}

}  // namespace wendrill::testing
