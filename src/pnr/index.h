// The index of the element that a caller asks for: the value of "intKeyIndex", counted from 0.
#pragma once

#include <cstdint>
#include <string_view>

#include "common/param_bag.h"
#include "common/value.h"

namespace wendrill {

inline constexpr std::u16string_view kIndexKey = u"intKeyIndex";

// How an index is compared with the count and converted to a 16-bit position. The results differ for a fraction, a
// large number and a missing index.
enum class IndexForm {
  // For segments. The index is converted, then compared. With a count of 4, the index 3.6 is converted to position 4,
  // which is out of range. 40000 raises 6 (overflow). A missing index is 0.
  ConvertedFirst,
  // For elements that the toolkit's collections contain. The index is compared, then converted. With a count of 5, the
  // index 4.9 is below the count, but is converted to position 5, which has no element. 0.6 is converted to position 1.
  // 40000 is out of range. A missing index is 0.
  ComparedFirst,
  // For elements found by scans, and for every kind of IGetPNR except MIS. The index is compared, then converted via
  // its string form. A missing index compares as 0, but raises 13 when it is converted. A Boolean raises 13 too when it
  // is converted.
  ComparedFirstConvertedAsText,
};

// The index that was in the caller's bag at the time of construction. Raises 13 for an index that is not a number, 94
// for Null, and 6 for a position that does not fit into 16 bits. With ConvertedFirst the constructor raises these
// errors, with the other forms the methods.
class Index {
 public:
  Index(ParamBag& bag, IndexForm form);

  bool IsBelow(std::int16_t count) const;

  // Raises `number`, one of the library's own error numbers, unless the index is below the count.
  void RequireBelow(std::int16_t count, std::int32_t number) const;

  // The index as a 16-bit position.
  std::int16_t Position() const;

 private:
  IndexForm form_;
  Value value_;
};

}  // namespace wendrill
