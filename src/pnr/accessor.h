// The algorithm that all accessors of PNR elements share. An accessor reads elements of one kind, such as hotel
// segments:
//   - It reads the index from the caller's bag and compares the index with the count of the kind.
//   - It enumerates the toolkit's collection of the kind up to the index.
//   - It stores the values of the element at the index in the caller's bag.
//
// The accessors differ only in the data of the struct Accessor.
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
//   - HostDate: the date in the host's notation, such as 12JUN08. The terminal's text helper converts the property's
//     value.
//   - HostDateOfText: the date in the host's notation. The terminal's text helper converts the string form of the
//     property's value.
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
// apply to the element. In this case KeysAreStored decides: with AsTheyAreRead, the bag keeps the value that it has
// under the key; with AllAtTheEnd, "" or False is stored under the key.
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

// Whether the accessor counts an element of the collection. The accessor skips an element for which the function
// returns false: this element takes up no index. EveryElement returns true for every element.
using CountedElement = bool (*)(const AutomationObject& element);
bool EveryElement(const AutomationObject& element);

// The data of one accessor: where its elements are, and how it reads and stores an element.
struct Accessor {
  // The collection that the accessor enumerates, and the count with which it compares the index.
  Collection collection;
  CountOf bound;
  // The error number for an index at or above the count. For the accessors that IGetPNR::Elements reads with, except
  // the MIS accessor, Elements raises the number for any failure except lack of memory.
  std::int32_t error;
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

// Reads the element at the index in the caller's bag and stores its values under the accessor's keys in the bag.
// Returns the bag or Nothing, as the accessor's field `result` says. Raises the accessor's error number for an index at
// or above the count. The other errors are those that PnrRecords::Get documents.
ParamBagRef ReadElement(ModuleState& state, const Accessor& accessor, const ParamBagRef& objParams);

// Stores the values of the element `found` under the accessor's keys in the bag, without reading an index: for callers
// that read a whole collection in one pass. When `found` is Nothing, an accessor with KeysAreStored::AsTheyAreRead
// stores nothing, and an accessor with AllAtTheEnd stores "" or False under each key.
void StoreRecord(ModuleState& state, const Accessor& accessor, const ObjectRef& found, ParamBag& bag);

}  // namespace wendrill
