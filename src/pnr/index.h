// The position that a caller asks for: "intKeyIndex", counted from 0.
#pragma once

#include <cstdint>
#include <string_view>

#include "common/param_bag.h"
#include "common/value.h"

namespace wendrill {

inline constexpr std::u16string_view kIndexKey = u"intKeyIndex";

// How an index is compared with the count and becomes a position. A fraction, a large number and a missing index tell
// the forms apart.
enum class IndexForm {
  // Segments: 3.6 of 4 is position 4, out of range; 40000 overflows (6); a missing index is 0.
  ConvertedFirst,
  // Elements: 4.9 of 5 is below the count and then position 5, which has no element; 0.6 is position 1; 40000 is out of
  // range; a missing index is 0.
  ComparedFirst,
  // Elements in arrays, and every kind of the generic access: the same, but it is converted via its string form. So a
  // missing index, below a count as 0 is, does not convert (13), nor does a Boolean.
  ComparedFirstConvertedAsText,
};

// The index as the caller's bag holds it now. Raises 13 for an index that is no number, 94 for Null, 6 for a position
// outside 16 bits: here where it is converted first, else where it is compared or converted.
class Index {
 public:
  Index(ParamBag& bag, IndexForm form);

  bool IsBelow(std::int16_t count) const;

  // Raises `number`, one of the library's own, unless the index is below the count.
  void RequireBelow(std::int16_t count, std::int32_t number) const;

  std::int16_t Position() const;

 private:
  IndexForm form_;
  Value value_;
};

}  // namespace wendrill
