#include "session/pnr_loading.h"

#include <array>

#include "toolkit/pnr_members.h"

namespace wendrill {
namespace {

constexpr Member kText = Member::Name(u"Text");

bool IsNothing(const Value& value) {
  const auto* object = value.As<ObjectRef>();
  return value.IsEmpty() || (object != nullptr && !*object);
}

}  // namespace

std::int32_t RetrieveOnDisplay(AutomationObject& pnr, const ObjectRef& hostConnection) {
  return ToInt32(pnr.Call(kRetrieveOnDisplay, std::array{Value(hostConnection)}));
}

void RetrieveByEntry(AutomationObject& pnr, const ObjectRef& hostConnection, std::u16string_view entry) {
  pnr.Call(kRetrieveByEntry, std::array{Value(hostConnection), Value(entry)});
}

std::u16string DisplayTextOf(AutomationObject& pnr, const TextForms& forms) {
  return ToText(pnr.Get(kDisplayText), forms);
}

ObjectRef HeaderOf(AutomationObject& pnr) {
  const Value header = pnr.Get(kHeader);
  return IsNothing(header) ? nullptr : ToObject(header);
}

std::u16string HeaderText(AutomationObject& header, const TextForms& forms) {
  return ToText(header.Get(kText), forms);
}

}  // namespace wendrill
