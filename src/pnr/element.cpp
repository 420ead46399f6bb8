#include "pnr/element.h"

#include "toolkit/platform.h"

namespace wendrill {
namespace {

bool SameMember(const Member& left, const Member& right) {
  return left.DispatchId() == right.DispatchId() && left.DispatchName() == right.DispatchName();
}

}  // namespace

std::u16string_view Element::Text(const Member& member) {
  Reading& reading = Read(member);
  if (const auto* text = reading.value.As<std::u16string>()) {
    return *text;
  }
  if (!reading.converted) {
    reading.converted = ToText(reading.value, state_.texts);
  }
  return *reading.converted;
}

std::u16string Element::HostDateText(const Value& date) {
  return TextHelperOf(state_).HostDateText(date);
}

Element::Reading& Element::Read(const Member& member) {
  for (Reading& reading : readings_) {
    if (SameMember(reading.member, member)) {
      return reading;
    }
  }
  return readings_.emplace_back(Reading{member, object_->Get(member)});
}

}  // namespace wendrill
