#include "pnr/index.h"

#include "common/error.h"

namespace wendrill {

bool IsBelow(const Value& index, std::int16_t count) {
  return ToDouble(index) < count;
}

void RequireBelow(const Value& index, std::int16_t count, std::int32_t number) {
  if (!IsBelow(index, count)) {
    RaiseOwn(number);
  }
}

}  // namespace wendrill
