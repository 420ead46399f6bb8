#include "pnr/accessor.h"

#include <string>
#include <utility>
#include <vector>

#include "common/numeric.h"
#include "common/text.h"

namespace wendrill {
namespace {

// The element of the accessor's collection at the position that the index asks for; Nothing when the collection has no
// such element. Only elements that the accessor counts (Accessor::counted) have a position. With IndexIsRead::Once, the
// position comes from `index`. With AgainForEachElement, `index` is ignored: the index is read from the bag again
// before each counted element.
ObjectRef ElementAtIndex(const ModuleState& state, const Accessor& accessor, ParamBag& bag, const Index& index) {
  const bool again = accessor.index == IndexIsRead::AgainForEachElement;
  std::int16_t wanted = again ? std::int16_t{0} : index.Position();
  const auto walk = CollectionObject(state, accessor.collection)->Walk();
  std::int16_t position = 0;
  while (ObjectRef element = walk->Next()) {
    if (!accessor.counted(*element)) {
      continue;
    }
    if (again) {
      wanted = Index(bag, accessor.indexForm).Position();
    }
    if (position == wanted) {
      return element;
    }
    position = Add16(position, 1);
  }
  return nullptr;
}

Value ValueOf(Element& element, const Property& property) {
  switch (property.form) {
    case Property::Form::AsReturned:
      return element.Property(property.member);
    case Property::Form::AsText:
      return element.Text(property.member);
    case Property::Form::HostDate:
      return element.HostDateText(element.Property(property.member));
    case Property::Form::HostDateOfText:
      return element.HostDateText(element.Text(property.member));
  }
  return {};
}

std::optional<Value> ValueOf(Element& element, const Key& key) {
  return key.cut ? key.cut(element) : ValueOf(element, *key.property);
}

void StoreAsRead(Element& element, std::span<const Key> keys, ParamBag& bag) {
  for (const Key& key : keys) {
    if (const auto value = ValueOf(element, key)) {
      bag.Set(key.name, *value);
    }
  }
}

// The value that StoreAtTheEnd stores under a key when there is no element, or when the key does not apply to the
// element: False for a key that begins with "blnKey", "" for any other key.
Value EmptyValueOf(const Key& key) {
  return StartsWith(key.name, u"blnKey") ? Value(false) : Value(u"");
}

void StoreAtTheEnd(Element* element, std::span<const Key> keys, ParamBag& bag) {
  std::vector<Value> values;
  values.reserve(keys.size());
  for (const Key& key : keys) {
    const auto value = element ? ValueOf(*element, key) : std::nullopt;
    values.push_back(value ? *value : EmptyValueOf(key));
  }
  for (std::size_t i = 0; i < keys.size(); ++i) {
    bag.Set(keys[i].name, values[i]);
  }
}

}  // namespace

bool EveryElement(const AutomationObject& /*element*/) {
  return true;
}

void StoreRecord(ModuleState& state, const Accessor& accessor, const ObjectRef& found, ParamBag& bag) {
  Element element(state, found);
  if (accessor.stored == KeysAreStored::AllAtTheEnd) {
    StoreAtTheEnd(found ? &element : nullptr, accessor.keys, bag);
  } else if (found) {
    StoreAsRead(element, accessor.keys, bag);
  }
}

ParamBagRef ReadElement(ModuleState& state, const Accessor& accessor, const ParamBagRef& objParams) {
  ParamBag& bag = BagOf(objParams);
  const Index index(bag, accessor.indexForm);
  index.RequireBelow(Count(state, accessor.bound), accessor.error);
  StoreRecord(state, accessor, ElementAtIndex(state, accessor, bag, index), bag);
  return accessor.result == Result::CallersBag ? objParams : nullptr;
}

}  // namespace wendrill
