// One element of a toolkit collection, while its record is being stored.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <string_view>

#include "common/module_state.h"
#include "common/value.h"
#include "toolkit/automation_object.h"

namespace wendrill {

// Reads each property from the toolkit once, on first use, and keeps the value. Errors of the toolkit propagate.
class Element {
 public:
  Element(ModuleState& state, ObjectRef object) : state_(state), object_(std::move(object)) {}

  // The value as the toolkit returned it.
  const Value& Property(const Member& member) { return Read(member).value; }

  // The value as a string; the view is valid as long as this object.
  std::u16string_view Text(const Member& member);
  std::u16string_view Text() { return Text(Member::Name(u"Text")); }

  // A value of a foreign object as a string, in the user's settings.
  std::u16string TextOf(const Value& value) const { return ToText(value, state_.texts); }

  // A date in the host's form, as the text helper returns it.
  std::u16string HostDateText(const Value& date);

  bool Is(SegmentType type) const { return object_->Is(type); }

 private:
  struct Reading {
    Member member;
    Value value;
    std::optional<std::u16string> converted = {};  // used when the value itself is not a string
  };

  Reading& Read(const Member& member);

  ModuleState& state_;
  ObjectRef object_;
  std::deque<Reading> readings_;  // a deque, because views into its elements stay valid while it grows
};

}  // namespace wendrill
