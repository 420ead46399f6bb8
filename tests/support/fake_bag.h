// A parameter bag that remembers every setting in its order. The simulator's bag keeps the last value of a key alone,
// and cannot answer a key with something else at the next read.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/param_bag.h"
#include "support/call_log.h"

namespace wendrill::testing {

class FakeBag final : public ParamBag {
 public:
  explicit FakeBag(CallLogRef calls = std::make_shared<CallLog>());
  ~FakeBag() override;
  FakeBag(const FakeBag&) = delete;
  FakeBag& operator=(const FakeBag&) = delete;

  // What the caller put in before: not entered in the log, not among the settings.
  FakeBag& Given(std::u16string_view key, Value value);

  // Answers a key again at every read.
  FakeBag& Answering(std::u16string_view key, std::function<Value()> answer);

  // All settings in order; a key that was set twice stands there twice.
  const std::vector<std::pair<std::u16string, Value>>& Settings() const { return settings_; }
  void ForgetSettings() { settings_.clear(); }

  // The settings as text, one line each: strKeyAirline = "AF"
  std::string SettingsText() const;

  // What is in the bag under a key now; Empty when nothing is. Not entered in the log.
  Value Held(std::u16string_view key) const;
  bool Holds(std::u16string_view key) const;

  void Set(std::u16string_view key, const Value& value) override;
  Value Get(std::u16string_view key) override;

 private:
  CallLogRef calls_;
  std::map<std::u16string, std::function<Value()>, std::less<>> entries_;
  std::vector<std::pair<std::u16string, Value>> settings_;
};

using FakeBagRef = std::shared_ptr<FakeBag>;

}  // namespace wendrill::testing
