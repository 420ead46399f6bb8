// A scripted object, as another component would return it. It does what a scenario cannot express: its properties can
// have any type, fail, be missing or change between two reads, and the object has a name in the call log. For sessions,
// responses and PNRs with ordinary behaviour, tests use the simulator's: test_world.h.
//
//   auto name = FakeObject::Make(calls, "name");
//   name->With(u"Text", u"1.SMITH/JOHN MR").With(u"ElementNo", u"1");
//   auto pnr = FakeObject::Make(calls, "PNR");
//   pnr->With(75, displayText).With(2, ObjectRef(FakeCollection(calls, "names", {name})));
//
// A call of a member that the test did not script fails the test; the message names the object and the member.
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

// A member as tests write it: its DISPID or its name, such as 75 or u"Text".
struct ScriptedMember {
  ScriptedMember(std::int32_t id) : member(Member::Id(id)) {}
  ScriptedMember(const char16_t* name) : member(Member::Name(name)) {}
  Member member;
};

class FakeObject final : public AutomationObject {
 public:
  using Answer = std::function<Value(std::span<const Value> arguments)>;

  // `name` precedes the member in the call log: "name.Text".
  static std::shared_ptr<FakeObject> Make(CallLogRef calls, std::string name);

  ~FakeObject() override;
  FakeObject(const FakeObject&) = delete;
  FakeObject& operator=(const FakeObject&) = delete;

  // The script of the object. Each function returns this object. Scripting a member again replaces its earlier script.
  FakeObject& With(ScriptedMember member, Value value);         // a property that always has this value
  FakeObject& Answering(ScriptedMember member, Answer answer);  // a method, or a property whose value changes
  FakeObject& Failing(ScriptedMember member, Error error = ForeignError());
  FakeObject& Lacking(ScriptedMember member);           // a missing member: raises 438 without failing the test
  FakeObject& Taking(ScriptedMember member);            // a property that may be assigned; see Assigned
  FakeObject& WithItems(std::vector<ObjectRef> items);  // makes this a collection: Walk, and Count as a 32-bit number
  FakeObject& OfType(SegmentType type);

  // The assignments to properties, in order: the text that Describe returns for the member, and the value.
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

// A scripted collection of the objects `items`.
FakeObjectRef FakeCollection(const CallLogRef& calls, std::string name, std::vector<ObjectRef> items);

}  // namespace wendrill::testing
