// A scripted object of another component, for what a scenario cannot express: properties of any type, that fail, that
// are missing or that answer differently at the next read, and objects that name themselves in the call log. Sessions,
// responses and PNRs that behave are the simulator's: test_world.h.
//
//   auto name = FakeObject::Make(calls, "name");
//   name->With(u"Text", u"1.SMITH/JOHN MR").With(u"ElementNo", u"1");
//   auto pnr = FakeObject::Make(calls, "PNR");
//   pnr->With(75, displayText).With(2, ObjectRef(FakeCollection(calls, "names", {name})));
//
// Strict: a member that the test did not script fails the test and names the object and the member.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/call_log.h"
#include "toolkit/automation_object.h"

namespace wendrill::testing {

// A member as tests write it: 75 or u"Text".
struct ScriptedMember {
  ScriptedMember(std::int32_t id) : member(Member::Id(id)) {}
  ScriptedMember(const char16_t* name) : member(Member::Name(name)) {}
  Member member;
};

class FakeObject final : public AutomationObject {
 public:
  using Answer = std::function<Value(std::span<const Value> arguments)>;

  // `name` stands before the member in the call log: "name.Text".
  static std::shared_ptr<FakeObject> Make(CallLogRef calls, std::string name);

  ~FakeObject() override;
  FakeObject(const FakeObject&) = delete;
  FakeObject& operator=(const FakeObject&) = delete;

  // The script. Each returns this object; scripting a member again replaces what it did.
  FakeObject& With(ScriptedMember member, Value value);         // the value of a property
  FakeObject& Answering(ScriptedMember member, Answer answer);  // a method, or a property that changes
  FakeObject& Failing(ScriptedMember member, Error error = ForeignError());
  FakeObject& Lacking(ScriptedMember member);           // 438, and the test knows it
  FakeObject& Taking(ScriptedMember member);            // a property that may be assigned; see Assigned
  FakeObject& WithItems(std::vector<ObjectRef> items);  // a collection: Walk, and Count as a 32-bit number
  FakeObject& OfType(SegmentType type);

  // What was assigned, in order, as the members' descriptions and the values.
  const std::vector<std::pair<std::string, Value>>& Assigned() const { return assigned_; }

  Value Get(const Member& member) override;
  void Put(const Member& member, const Value& value) override;
  Value Call(const Member& member, std::span<const Value> arguments) override;
  std::unique_ptr<ObjectWalk> Walk() override;
  bool Is(SegmentType type) const override { return type_ == type; }

 private:
  FakeObject(CallLogRef calls, std::string name);

  CallLogRef calls_;
  std::string name_;
  std::map<std::string, Answer> answers_;
  std::map<std::string, bool> taking_;
  std::vector<std::pair<std::string, Value>> assigned_;
  std::optional<std::vector<ObjectRef>> items_;
  std::optional<SegmentType> type_;
};

using FakeObjectRef = std::shared_ptr<FakeObject>;

// A collection of these objects.
FakeObjectRef FakeCollection(const CallLogRef& calls, std::string name, std::vector<ObjectRef> items);

}  // namespace wendrill::testing
