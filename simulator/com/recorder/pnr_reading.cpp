#include "com/recorder/pnr_reading.h"

#include "com/recorder/quiet_call.h"
#include "platform.h"

namespace wendrill::recorder {
namespace {

using simulator::Collection;
using simulator::ObjectType;
using simulator::Property;
using simulator::SegmentKind;

constexpr wchar_t kElementNo[] = L"ElementNo";
constexpr wchar_t kPassengers[] = L"Passengers";

const wchar_t* NameOf(const Property& property) {
  return com::WideOf(property.name.data());
}

// Whether the recorder knows the property only by its DISPID, not by the terminal's name for the property. True for all
// properties of a car, and for all properties of the header except Text.
bool IsKnownById(const ObjectType& type, const Property& property) {
  return &type == &simulator::kCarSegment || (&type == &simulator::kHeader && property.name != u"Text");
}

bool ReadProperty(IDispatch* object, const ObjectType& type, const Property& property, VARIANT* result) {
  return IsKnownById(type, property) ? Read(object, property.id, result) : Read(object, NameOf(property), result);
}

// Calls `visit` with each element of a collection. Returns false when the collection cannot be enumerated to its end,
// or contains anything that is not an object.
template <typename Visit>
bool ForEachElement(IDispatch* collection, Visit visit) {
  com::OwnedVariant result;
  com::Reference<IEnumVARIANT> elements;
  if (!Read(collection, DISPID_NEWENUM, &result) || (V_VT(&result) != VT_UNKNOWN && V_VT(&result) != VT_DISPATCH) ||
      V_UNKNOWN(&result) == nullptr ||
      FAILED(V_UNKNOWN(&result)->QueryInterface(IID_IEnumVARIANT, elements.ReceiveVoid()))) {
    return false;
  }
  const OwnErrorInformation own;
  while (true) {
    com::OwnedVariant element;
    ULONG fetched = 0;
    const HRESULT status = elements->Next(1, &element, &fetched);
    if (FAILED(status) || fetched == 0) {
      return SUCCEEDED(status);
    }
    const auto object = ObjectIn(element);
    if (!object) {
      return false;
    }
    visit(object.Get());
  }
}

// The element numbers of a car's passengers, read from the collection Passengers of the car's association.
std::vector<Value> PassengersOf(IDispatch* car) {
  std::vector<Value> numbers;
  const auto association = ObjectAt(car, simulator::kCarPassengers);
  const auto passengers = association ? ObjectAt(association.Get(), kPassengers) : com::Reference<IDispatch>();
  if (passengers) {
    ForEachElement(passengers.Get(), [&](IDispatch* passenger) {
      com::OwnedVariant number;
      if (Read(passenger, kElementNo, &number)) {
        if (auto value = ValueIn(number)) {
          numbers.push_back(std::move(*value));
        }
      }
    });
  }
  return numbers;
}

recording::ReadObject PropertiesOf(IDispatch* object, const ObjectType& type) {
  recording::ReadObject read;
  for (const Property& property : type.properties) {
    if (&type == &simulator::kCarSegment && property.id == simulator::kCarPassengers) {
      read.passengers = PassengersOf(object);
      continue;
    }
    com::OwnedVariant result;
    if (ReadProperty(object, type, property, &result)) {
      if (auto value = ValueIn(result)) {
        read.properties.emplace(property.name, std::move(*value));
      }
    }
  }
  return read;
}

bool Has(IDispatch* object, const IID& identity) {
  com::Reference<IUnknown> found;
  return SUCCEEDED(object->QueryInterface(identity, found.ReceiveVoid()));
}

SegmentKind KindOf(IDispatch* segment, const std::u16string& number, const std::set<std::u16string>& flown) {
  if (Has(segment, __uuidof(_TimedAirSegment))) {
    return SegmentKind::Timed;
  }
  if (Has(segment, __uuidof(_UntimedAirSegment))) {
    return SegmentKind::Open;
  }
  return flown.contains(number) ? SegmentKind::Flown : SegmentKind::Other;
}

}  // namespace

recording::ReadPnr ReadPnrObject(IDispatch* pnr, std::int32_t status) {
  recording::ReadPnr read;
  read.status = status;
  read.display = ReadText(pnr, simulator::kPnrDisplayText.id).value_or(u"");
  if (const auto header = ObjectAt(pnr, simulator::kPnrHeader.id)) {
    read.header = PropertiesOf(header.Get(), simulator::kHeader);
  }
  return read;
}

std::optional<std::vector<recording::ReadObject>> ReadElements(IDispatch* pnr, const Collection& collection,
                                                               std::set<std::u16string>& flown) {
  const auto list = ObjectAt(pnr, collection.id);
  std::vector<recording::ReadObject> elements;
  const auto visit = [&](IDispatch* element) {
    recording::ReadObject read = PropertiesOf(element, collection.elementType);
    if (&collection.elementType == &simulator::kAirSegment) {
      const std::u16string number = ReadText(element, kElementNo).value_or(u"");
      if (collection.kind == SegmentKind::Flown) {
        flown.insert(number);
      }
      read.kind = collection.kind != SegmentKind::None ? collection.kind : KindOf(element, number, flown);
    }
    elements.push_back(std::move(read));
  };
  if (!list || !ForEachElement(list.Get(), visit)) {
    return std::nullopt;
  }
  return elements;
}

}  // namespace wendrill::recorder
