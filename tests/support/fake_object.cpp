#include "support/fake_object.h"

#include <gtest/gtest.h>

#include "support/describe.h"

namespace wendrill::testing {
namespace {

[[noreturn]] void FailUnexpected(const std::string& call) {
  ADD_FAILURE() << "unexpected call: " << call;
  Raise(RunTimeError::MemberNotSupported);
}

class FakeWalk final : public ObjectWalk {
 public:
  FakeWalk(CallLogRef calls, std::string name, std::vector<ObjectRef> items)
      : calls_(std::move(calls)), name_(std::move(name)), items_(std::move(items)) {
    ++calls_->liveObjects;
  }
  ~FakeWalk() override { --calls_->liveObjects; }
  FakeWalk(const FakeWalk&) = delete;
  FakeWalk& operator=(const FakeWalk&) = delete;

  ObjectRef Next() override {
    calls_->Enter(name_ + " next");
    return position_ < items_.size() ? items_[position_++] : nullptr;
  }

 private:
  CallLogRef calls_;
  std::string name_;
  std::vector<ObjectRef> items_;
  std::size_t position_ = 0;
};

}  // namespace

FakeObject::FakeObject(CallLogRef calls, std::string name) : calls_(std::move(calls)), name_(std::move(name)) {
  ++calls_->liveObjects;
}

FakeObject::~FakeObject() {
  --calls_->liveObjects;
}

std::shared_ptr<FakeObject> FakeObject::Make(CallLogRef calls, std::string name) {
  return std::shared_ptr<FakeObject>(new FakeObject(std::move(calls), std::move(name)));
}

FakeObject& FakeObject::With(ScriptedMember member, Value value) {
  return Answering(member, [value = std::move(value)](std::span<const Value>) { return value; });
}

FakeObject& FakeObject::Answering(ScriptedMember member, Answer answer) {
  answers_[Describe(member.member)] = std::move(answer);
  return *this;
}

FakeObject& FakeObject::Failing(ScriptedMember member, Error error) {
  return Answering(member, [error = std::move(error)](std::span<const Value>) -> Value { throw Error(error); });
}

FakeObject& FakeObject::Lacking(ScriptedMember member) {
  return Answering(member, [](std::span<const Value>) -> Value { Raise(RunTimeError::MemberNotSupported); });
}

FakeObject& FakeObject::Taking(ScriptedMember member) {
  taking_[Describe(member.member)] = true;
  return *this;
}

FakeObject& FakeObject::WithItems(std::vector<ObjectRef> items) {
  With(u"Count", static_cast<std::int32_t>(items.size()));
  items_ = std::move(items);
  return *this;
}

FakeObject& FakeObject::OfType(SegmentType type) {
  type_ = type;
  return *this;
}

Value FakeObject::Get(const Member& member) {
  return Call(member, {});
}

Value FakeObject::Call(const Member& member, std::span<const Value> arguments) {
  const std::string call = name_ + "." + Describe(member);
  calls_->Enter(call);
  const auto answer = answers_.find(Describe(member));
  if (answer == answers_.end()) {
    FailUnexpected(call);
  }
  return answer->second(arguments);
}

void FakeObject::Put(const Member& member, const Value& value) {
  const std::string call = name_ + "." + Describe(member) + " =";
  calls_->Enter(call);
  if (!taking_.contains(Describe(member))) {
    FailUnexpected(call + " " + Describe(value));
  }
  assigned_.emplace_back(Describe(member), value);
}

std::unique_ptr<ObjectWalk> FakeObject::Walk() {
  const std::string call = name_ + " walk";
  calls_->Enter(call);
  if (!items_) {
    FailUnexpected(call);
  }
  return std::make_unique<FakeWalk>(calls_, name_, *items_);
}

FakeObjectRef FakeCollection(const CallLogRef& calls, std::string name, std::vector<ObjectRef> items) {
  auto collection = FakeObject::Make(calls, std::move(name));
  collection->WithItems(std::move(items));
  return collection;
}

}  // namespace wendrill::testing
