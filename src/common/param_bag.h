// The caller's keyed parameter object, as the library sees it.
#pragma once

#include <memory>
#include <string_view>

#include "common/value.h"

namespace wendrill {

// The two operations of a bag that the library calls. Either may raise the bag's own error, which propagates unchanged.
class ParamBag {
 public:
  virtual ~ParamBag() = default;

  // Stores a value under a key and replaces the value that the key had.
  virtual void Set(std::u16string_view key, const Value& value) = 0;

  // The value of the entry under a key; Empty when the bag has no such entry.
  virtual Value Get(std::u16string_view key) = 0;

 protected:
  ParamBag() = default;
  ParamBag(const ParamBag&) = default;
  ParamBag& operator=(const ParamBag&) = default;
};

using ParamBagRef = std::shared_ptr<ParamBag>;

// The bag that a reference refers to. Raises 91 (object not set) when the reference is Nothing.
ParamBag& BagOf(const ParamBagRef& bag);

// The value of a Boolean key: False when the key is missing; a value of another type is converted.
bool BooleanKey(ParamBag& bag, std::u16string_view key);

// The value of a string key: "" when the key is missing; a value of another type is converted to its string form.
std::u16string TextKey(ParamBag& bag, std::u16string_view key, const TextForms& forms);

}  // namespace wendrill
