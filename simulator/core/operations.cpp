#include "core/operations.h"

#include <set>

#include "common/text.h"
#include "derive/object_model.h"

namespace wendrill::simulator {
namespace {

// The members of all components but the PNR objects, whose members are listed in object_model.h.
constexpr std::u16string_view kComponentMembers[] = {
    // The members of a response.
    u"Buffer",
    u"HostCommand",
    u"ResponseType",
    u"Text",
    u"NumberOfColumns",
    u"NumberOfLines",
    u"Line",
    // The members of a session.
    u"Send",
    u"LastResponse",
    u"SessionName",
    u"HostConnection",
    u"SendKey",
    u"ReceivedResponse",
    // The members of lists and collections.
    u"Count",
    u"Item",
    u"_NewEnum",
    u"Next",
    // The member of the alarm.
    u"LockAlarm",
    // The members of the text helper.
    u"TerminalReady",
    u"HostReady",
    u"TerminalVersion",
    u"HostDateText",
    // The members of the parameter bag.
    u"Set",
    u"Get",
    u"Exists",
    u"Keys",
    u"RemoveAll",
};

constexpr Property kPnrMembers[] = {kPnrValue, kPnrDisplayText, kPnrHeader, kPnrRetrieveCurrent, kPnrRetrieve};

constexpr const ObjectType* kObjectTypes[] = {&kPlainElement, &kNameElement,       &kAirSegment,    &kCarSegment,
                                              &kHotelSegment, &kCommissionElement, &kTicketElement, &kRemarkElement,
                                              &kHeader,       &kPassengerList,     &kPassenger};

struct OrderWithoutCase {
  bool operator()(std::u16string_view left, std::u16string_view right) const {
    return CompareWithoutCase(left, right) < 0;
  }
};

using Names = std::set<std::u16string_view, OrderWithoutCase>;

Names AllNames() {
  Names names(std::begin(kComponentMembers), std::end(kComponentMembers));
  for (const Property& member : kPnrMembers) {
    names.insert(member.name);
  }
  for (const Collection& collection : kCollections) {
    names.insert(collection.name);
  }
  for (const ObjectType* type : kObjectTypes) {
    for (const Property& property : type->properties) {
      names.insert(property.name);
    }
  }
  return names;
}

}  // namespace

bool IsOperation(std::u16string_view name) {
  return name == kEveryOperation || AllNames().contains(name);
}

std::u16string KnownOperations() {
  std::u16string list;
  for (const std::u16string_view name : AllNames()) {
    if (!list.empty()) {
      list += u", ";
    }
    list += name;
  }
  return list;
}

}  // namespace wendrill::simulator
