// One element of a toolkit collection, while an accessor stores the element's keys.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <string_view>

#include "common/module_state.h"
#include "common/value.h"
#include "toolkit/automation_object.h"

namespace wendrill {

// Reads each property from the toolkit only once, on first use, and caches its value. Errors of the toolkit propagate.
class Element {
 public:
  Element(ModuleState& state, ObjectRef object) : state_(state), object_(std::move(object)) {}

  // The value of a property as the toolkit returns it, without conversion.
  const Value& Property(const Member& member) { return Read(member).value; }

  // The value of a property, converted to a string. The view is valid as long as this object.
  std::u16string_view Text(const Member& member);
  std::u16string_view Text() { return Text(Member::Name(u"Text")); }

  // The string form of a value of a foreign object, according to the user's regional settings.
  std::u16string TextOf(const Value& value) const { return ToText(value, state_.texts); }

  // The date in the host's notation, as the terminal's text helper returns it.
  std::u16string HostDateText(const Value& date);

  bool Is(SegmentType type) const { return object_->Is(type); }

 private:
  struct Reading {
    Member member;
    Value value;
    std::optional<std::u16string> converted = {};  // the string form of a `value` that is no string
  };

  Reading& Read(const Member& member);

  ModuleState& state_;
  ObjectRef object_;
  std::deque<Reading> readings_;  // a deque: views into its elements stay valid while it grows
};

}  // namespace wendrill
