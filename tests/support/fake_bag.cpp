#include "support/fake_bag.h"

#include "common/text.h"
#include "support/describe.h"

namespace wendrill::testing {

FakeBag::FakeBag(CallLogRef calls) : calls_(std::move(calls)) {
  ++calls_->liveObjects;
}

FakeBag::~FakeBag() {
  --calls_->liveObjects;
}

FakeBag& FakeBag::Given(std::u16string_view key, Value value) {
  return Answering(key, [value = std::move(value)] { return value; });
}

FakeBag& FakeBag::Answering(std::u16string_view key, std::function<Value()> answer) {
  entries_[std::u16string(key)] = std::move(answer);
  return *this;
}

std::string FakeBag::SettingsText() const {
  std::string text;
  for (const auto& [key, value] : settings_) {
    text += ToUtf8(key) + " = " + Describe(value) + "\n";
  }
  return text;
}

Value FakeBag::Held(std::u16string_view key) const {
  const auto entry = entries_.find(key);
  return entry == entries_.end() ? Value() : entry->second();
}

bool FakeBag::Holds(std::u16string_view key) const {
  return entries_.contains(key);
}

void FakeBag::Set(std::u16string_view key, const Value& value) {
  calls_->Enter("bag set " + ToUtf8(key));
  settings_.emplace_back(key, value);
  Given(key, value);
}

Value FakeBag::Get(std::u16string_view key) {
  calls_->Enter("bag get " + ToUtf8(key));
  return Held(key);
}

}  // namespace wendrill::testing
