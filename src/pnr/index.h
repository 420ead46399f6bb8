// The index that a caller asks for: "intKeyIndex", counted from 0.
#pragma once

#include <cstdint>
#include <string_view>

#include "common/param_bag.h"
#include "common/value.h"

namespace wendrill {

inline constexpr std::u16string_view kIndexKey = u"intKeyIndex";

// How an index is compared with the count and converted to a 16-bit position. The forms differ for a fraction, a large
// number and a missing index.
enum class IndexForm {
  // Segments. With a count of 4, the index 3.6 is converted to position 4, which is out of range; 40000 raises 6
  // (overflow); a missing index is 0.
  ConvertedFirst,
  // Elements. With a count of 5, the index 4.9 is below the count, but is then converted to position 5, which has no
  // element; 0.6 is converted to position 1; 40000 is out of range; a missing index is 0.
  ComparedFirst,
  // Elements in arrays, and every kind of the generic access. As ComparedFirst, but the index is converted via its
  // string form. So a missing index, which compares as 0, raises 13 when it is converted, and so does a Boolean.
  ComparedFirstConvertedAsText,
};

// The index in the caller's bag at the time of construction. Raises 13 for an index that is not a number, 94 for Null,
// 6 for a position that 16 bits do not hold: the constructor raises for ConvertedFirst, the methods for the other
// forms.
class Index {
 public:
  Index(ParamBag& bag, IndexForm form);

  bool IsBelow(std::int16_t count) const;

  // Raises `number`, one of the library's own numbers, unless the index is below the count.
  void RequireBelow(std::int16_t count, std::int32_t number) const;

  std::int16_t Position() const;

 private:
  IndexForm form_;
  Value value_;
};

}  // namespace wendrill
