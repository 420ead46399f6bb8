// A parameter bag that records every Set in order, and whose values can change between two reads. The simulator's bag
// can do neither: it keeps only the last value of each key, and returns this value on every read.
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

  // Stores a value, as the library's caller does before the call under test. The value is neither entered in the call
  // log nor recorded in Settings.
  FakeBag& Given(std::u16string_view key, Value value);

  // Makes each read of the key call `answer` and return its result.
  FakeBag& Answering(std::u16string_view key, std::function<Value()> answer);

  // All keys and values that were set, in order. A key that was set twice occurs twice.
  const std::vector<std::pair<std::u16string, Value>>& Settings() const { return settings_; }
  void ForgetSettings() { settings_.clear(); }

  // Settings as text, with one line for each: strKeyAirline = "AF"
  std::string SettingsText() const;

  // The current value of a key, Empty when the bag does not have the key; and whether the bag has the key. Neither call
  // is entered in the call log.
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
