// One element of a toolkit collection while its record is written.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <string_view>

#include "common/module_state.h"
#include "common/value.h"
#include "toolkit/automation_object.h"

namespace wendrill {

// Asks the toolkit for each property once, when it is needed first, and keeps the answer. Failures are the toolkit's
// own.
class Element {
 public:
  Element(ModuleState& state, ObjectRef object) : state_(state), object_(std::move(object)) {}

  // As the toolkit returns it.
  const Value& Property(const Member& member) { return Read(member).value; }

  // As text; the view lives as long as the element.
  std::u16string_view Text(const Member& member);
  std::u16string_view Text() { return Text(Member::Name(u"Text")); }

  // A value of somebody else's object as text.
  std::u16string TextOf(const Value& value) const { return ToText(value, state_.texts); }

  // The form that the text helper gives to a date.
  std::u16string HostDateText(const Value& date);

  bool Is(SegmentType type) const { return object_->Is(type); }

 private:
  struct Reading {
    Member member;
    Value value;
    std::optional<std::u16string> converted = {};  // where the value itself is no text
  };

  Reading& Read(const Member& member);

  ModuleState& state_;
  ObjectRef object_;
  std::deque<Reading> readings_;  // a handful; views into them stay valid while it grows
};

}  // namespace wendrill
