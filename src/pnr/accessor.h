// The algorithm that all accessors of PNR elements share: read the index, compare it with the kind's count, enumerate
// the kind's collection up to the index, store the element's keys in order in the caller's bag. What differs between
// the accessors is in the rows of their tables.
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

// A property of the element, and the form in which it is stored.
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

// Cuts a value out of the element; nullopt when the key does not apply: the bag then keeps the value that it has under
// the key.
using CuttingFunction = std::optional<Value> (*)(Element& element);

// A key and where its value comes from.
struct Key {
  constexpr Key(std::u16string_view keyName, Property source) : name(keyName), property(source) {}
  constexpr Key(std::u16string_view keyName, CuttingFunction source) : name(keyName), cut(source) {}

  std::u16string_view name;
  std::optional<Property> property = {};
  CuttingFunction cut = nullptr;
};

// When the index is read from the bag.
enum class IndexIsRead {
  Once,
  AgainForEachElement,  // before each step of the enumeration, so that a change of the index in the bag takes effect
};

// When the keys are written.
enum class KeysAreStored {
  AsTheyAreRead,  // each key before the next is read; no key is stored when there is no element at the index
  AllAtTheEnd,    // after all keys are read; each is "" or False when there is no element at the index
};

enum class Result { Nothing, CallersBag };

// Whether an element of the collection counts for the index.
using CountedElement = bool (*)(const AutomationObject& element);
bool EveryElement(const AutomationObject& element);

struct Accessor {
  Collection collection;
  CountOf bound;
  std::int32_t error;  // the error number for an index at or above the count
  std::span<const Key> keys;
  IndexForm indexForm;
  IndexIsRead index = IndexIsRead::Once;
  Result result = Result::Nothing;
  CountedElement counted = EveryElement;
  KeysAreStored stored = KeysAreStored::AsTheyAreRead;
};

struct GetAccessor {
  GetMember member;
  Accessor accessor;
};

// Runs the accessor on the caller's bag. See PnrRecords::Get for what the caller sees.
ParamBagRef ReadElement(ModuleState& state, const Accessor& accessor, const ParamBagRef& objParams);

// Stores the keys of an element that the caller has found, for callers that read a whole collection in one pass.
// `found` may be Nothing: an index without an element.
void StoreRecord(ModuleState& state, const Accessor& accessor, const ObjectRef& found, ParamBag& bag);

}  // namespace wendrill
