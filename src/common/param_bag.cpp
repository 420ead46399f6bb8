#include "common/param_bag.h"

#include "common/error.h"

namespace wendrill {

ParamBag& BagOf(const ParamBagRef& bag) {
  if (bag == nullptr) {
    Raise(RunTimeError::ObjectNotSet);
  }
  return *bag;
}

// Intentional: BooleanKey and TextKey raise no error for a missing key. The value of a missing key is Empty, which
// converts to False and to the empty string.

bool BooleanKey(ParamBag& bag, std::u16string_view key) {
  return ToBoolean(bag.Get(key));
}

std::u16string TextKey(ParamBag& bag, std::u16string_view key, const TextForms& forms) {
  return ToText(bag.Get(key), forms);
}

}  // namespace wendrill
