// Port to a parameter bag, the object in which callers pass named values to members and receive results.
#pragma once

#include <memory>
#include <string_view>

#include "common/value.h"

namespace wendrill {

// The two operations of a parameter bag that the library calls. Set and Get may raise the bag's own error, which
// propagates unchanged.
class ParamBag {
 public:
  virtual ~ParamBag() = default;

  // Stores `value` under a key. Replaces the value that the key had, if any.
  virtual void Set(std::u16string_view key, const Value& value) = 0;

  // The value that is stored under a key; Empty when the bag does not have the key.
  virtual Value Get(std::u16string_view key) = 0;

 protected:
  ParamBag() = default;
  ParamBag(const ParamBag&) = default;
  ParamBag& operator=(const ParamBag&) = default;
};

using ParamBagRef = std::shared_ptr<ParamBag>;

// The bag to which a reference refers. Raises 91 (object not set) when the reference is null.
ParamBag& BagOf(const ParamBagRef& bag);

// The value of a key, converted to Boolean; false when the bag does not have the key. Raises what ToBoolean raises,
// such as 13 (type mismatch) for a string that is not a number.
bool BooleanKey(ParamBag& bag, std::u16string_view key);

// The value of a key, converted to its string form; the empty string when the bag does not have the key. Raises what
// ToText raises, such as 13 (type mismatch) for an array.
std::u16string TextKey(ParamBag& bag, std::u16string_view key, const TextForms& forms);

}  // namespace wendrill
