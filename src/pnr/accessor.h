// The algorithm that all accessors of PNR elements share. An accessor reads the index from the caller's bag, compares
// the index with the count of the kind, enumerates the kind's collection up to the index, and stores the element's keys
// in their order in the caller's bag. The accessors differ only in the rows of their tables.
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

// A property of an element, and the form in which its value is stored.
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

// Cuts a value out of an element's text or properties; nullopt when the key does not apply to the element. The bag then
// keeps the value that it already has under the key. With KeysAreStored::AllAtTheEnd, "" or False is stored instead.
using CuttingFunction = std::optional<Value> (*)(Element& element);

// A key of the bag, and the source of its value: a property or a cutting function.
struct Key {
  constexpr Key(std::u16string_view keyName, Property source) : name(keyName), property(source) {}
  constexpr Key(std::u16string_view keyName, CuttingFunction source) : name(keyName), cut(source) {}

  std::u16string_view name;
  std::optional<Property> property = {};
  CuttingFunction cut = nullptr;
};

// How often an accessor reads the index from the bag.
enum class IndexIsRead {
  Once,
  AgainForEachElement,  // at the beginning and again for each element, so that a change of the index takes effect
};

// When an accessor stores the keys in the bag.
enum class KeysAreStored {
  AsTheyAreRead,  // each key before the next key is read; without an element at the index, no key is stored
  AllAtTheEnd,    // after all keys are read; without an element at the index, each key is stored as "" or False
};

// What the member of IGet returns.
enum class Result { Nothing, CallersBag };

// Whether an element of the collection counts. An element for which the function returns false is skipped and has no
// index.
using CountedElement = bool (*)(const AutomationObject& element);
bool EveryElement(const AutomationObject& element);

// One accessor: a row of a table.
struct Accessor {
  // The collection that is enumerated, and the count with which the index is compared.
  Collection collection;
  CountOf bound;
  std::int32_t error;  // raised for an index at or above the count
  std::span<const Key> keys;
  IndexForm indexForm;
  IndexIsRead index = IndexIsRead::Once;
  Result result = Result::Nothing;
  CountedElement counted = EveryElement;
  KeysAreStored stored = KeysAreStored::AsTheyAreRead;
};

// An accessor and the member of IGet that it implements.
struct GetAccessor {
  GetMember member;
  Accessor accessor;
};

// Runs the accessor on the caller's bag. PnrRecords::Get documents the effects and the errors.
ParamBagRef ReadElement(ModuleState& state, const Accessor& accessor, const ParamBagRef& objParams);

// Stores the keys of the element `found` in the bag, for callers that read a whole collection in one pass. `found` is
// Nothing when there is no element at the index; KeysAreStored documents what is stored then.
void StoreRecord(ModuleState& state, const Accessor& accessor, const ObjectRef& found, ParamBag& bag);

}  // namespace wendrill
