// The algorithm that all accessors of PNR elements share. An accessor reads the index from the caller's bag and
// compares the index with the count of the kind. It enumerates the collection of the kind up to the index, and stores
// the values of the element at the index in the caller's bag. The accessors differ only in the data of the struct
// Accessor.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "common/module_state.h"
#include "common/param_bag.h"
#include "common/value.h"
#include "pnr/counts.h"
#include "pnr/element.h"
#include "pnr/index.h"
#include "pnr/toolkit_pnr.h"
#include "wendrill23_published.h"

namespace wendrill {

// A property of an element, and the form in which its value is stored:
//   - AsReturned: the value in the type that the toolkit returns.
//   - AsText: the string form of the value.
//   - HostDate: the date in the host's notation, such as 12JUN08.
//   - HostDateOfText: like HostDate, but the text helper receives the string form of the value.
struct Property {
  enum class Form { AsReturned, AsText, HostDate, HostDateOfText };
  Member member;
  Form form;
};

constexpr Property AsReturned(std::u16string_view name) {
  return {Member::Name(name), Property::Form::AsReturned};
}
constexpr Property AsText(std::u16string_view name) {
  return {Member::Name(name), Property::Form::AsText};
}
constexpr Property HostDate(std::u16string_view name) {
  return {Member::Name(name), Property::Form::HostDate};
}
constexpr Property HostDateOfText(std::u16string_view name) {
  return {Member::Name(name), Property::Form::HostDateOfText};
}
constexpr Property AsText(std::int32_t id) {
  return {Member::Id(id), Property::Form::AsText};
}
constexpr Property HostDateOfText(std::int32_t id) {
  return {Member::Id(id), Property::Form::HostDateOfText};
}

// A function that cuts the value of a key out of an element's text or properties. Returns nullopt when the key does not
// apply to the element. With KeysAreStored::AsTheyAreRead, nullopt leaves the value that the bag has under the key;
// with KeysAreStored::AllAtTheEnd, "" or False is stored instead.
using CuttingFunction = std::optional<Value> (*)(Element& element);

// A key of the bag, and the source of its value: a property of the element, or a cutting function.
struct Key {
  constexpr Key(std::u16string_view keyName, Property source) : name(keyName), property(source) {}
  constexpr Key(std::u16string_view keyName, CuttingFunction source) : name(keyName), cut(source) {}

  std::u16string_view name;
  std::optional<Property> property = {};
  CuttingFunction cut = nullptr;
};

// How often an accessor reads the index from the bag.
enum class IndexIsRead {
  Once,                 // at the beginning
  AgainForEachElement,  // also before each element: a change of the index during the enumeration takes effect
};

// When an accessor stores the values of its keys in the bag.
enum class KeysAreStored {
  AsTheyAreRead,  // each value before the next value is read; without an element at the index, nothing is stored
  AllAtTheEnd,    // after all values are read; without an element at the index, "" or False is stored under each key
};

// What ReadElement returns for the accessor: Nothing, or the caller's bag.
enum class Result { Nothing, CallersBag };

// Whether an element of the collection counts. An accessor skips an element for which the function returns false; such
// an element has no index. EveryElement returns true for every element.
using CountedElement = bool (*)(const AutomationObject& element);
bool EveryElement(const AutomationObject& element);

// The data of one accessor: where its elements are, and how it reads and stores an element.
struct Accessor {
  // The collection that the accessor enumerates, and the count with which it compares the index.
  Collection collection;
  CountOf bound;
  std::int32_t error;  // raised for an index at or above the count; IGetPNR::Elements raises the number for any failure
  std::span<const Key> keys;  // in the order in which the values are stored
  IndexForm indexForm;
  IndexIsRead index = IndexIsRead::Once;
  Result result = Result::Nothing;
  CountedElement counted = EveryElement;
  KeysAreStored stored = KeysAreStored::AsTheyAreRead;
};

// An accessor and the member of IGet that uses the accessor.
struct GetAccessor {
  GetMember member;
  Accessor accessor;
};

// Reads the element at the index in the caller's bag and stores the values of its keys in the bag. Returns the bag or
// Nothing, as the accessor's Result says. Raises the accessor's error number for an index at or above the count;
// PnrRecords::Get documents the other errors.
ParamBagRef ReadElement(ModuleState& state, const Accessor& accessor, const ParamBagRef& objParams);

// Stores the values of the element `found` in the bag, without reading an index: for callers that read a whole
// collection in one pass. When `found` is Nothing, stores nothing with AsTheyAreRead, and "" or False under each key
// with AllAtTheEnd.
void StoreRecord(ModuleState& state, const Accessor& accessor, const ObjectRef& found, ParamBag& bag);

}  // namespace wendrill
