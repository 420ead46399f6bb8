// An element of a toolkit collection whose values an accessor reads.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <string_view>

#include "common/module_state.h"
#include "common/value.h"
#include "toolkit/automation_object.h"

namespace wendrill {

// Reads each property from the toolkit only once, on first use, and caches the value. Errors of the toolkit propagate
// unchanged.
class Element {
 public:
  Element(ModuleState& state, ObjectRef object) : state_(state), object_(std::move(object)) {}

  // The value of a property as the toolkit returns it, without conversion.
  const Value& Property(const Member& member) { return Read(member).value; }

  // The value of a property, converted to a string; without an argument, the value of the property "Text". The view is
  // valid as long as this Element exists.
  std::u16string_view Text(const Member& member);
  std::u16string_view Text() { return Text(Member::Name(u"Text")); }

  // The string form of a value of another object, such as a passenger of the element, according to the user's regional
  // settings.
  std::u16string TextOf(const Value& value) const { return ToText(value, state_.texts); }

  // The date in the host's notation DDMMMYY, such as 12JUN08, as the terminal's text helper returns the date.
  std::u16string HostDateText(const Value& date);

  // Whether the element is a segment of the type.
  bool Is(SegmentType type) const { return object_->Is(type); }

 private:
  struct Reading {
    Member member;
    Value value;
    // The string form of `value`. nullopt when `value` is itself a string, and before the first call of Text for
    // `member`.
    std::optional<std::u16string> converted = {};
  };

  Reading& Read(const Member& member);

  ModuleState& state_;
  ObjectRef object_;
  std::deque<Reading> readings_;  // a deque, because views into its elements stay valid while it grows
};

}  // namespace wendrill
