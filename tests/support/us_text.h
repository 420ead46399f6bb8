// Converts values to text as on a desktop with US settings.
#pragma once

#include <string>

#include "common/text_forms.h"

namespace wendrill::testing {

inline std::u16string ToUsText(const Value& value) {
  return ToText(value, UsTextForms());
}

}  // namespace wendrill::testing
