// The index of the element that a caller asks for: the value of "intKeyIndex", counted from 0.
#pragma once

#include <cstdint>
#include <string_view>

#include "common/param_bag.h"
#include "common/value.h"

namespace wendrill {

inline constexpr std::u16string_view kIndexKey = u"intKeyIndex";

// How an index is converted to a 16-bit position and compared with the count of elements. The forms give different
// results for a fraction, a large number, a missing index and a Boolean.
enum class IndexForm {
  // For the segments that IGet reads. The index is first rounded to a 16-bit position; then the position is compared
  // with the count. With a count of 4, the index 3.6 is rounded to position 4, which is out of range. The index 40000
  // raises 6 (overflow). A missing index is 0.
  ConvertedFirst,
  // For the elements other than segments that IGet and CPNR::GetMISElement read from the toolkit's collections. The
  // unrounded index is compared with the count, and is rounded to a position only after the comparison. With a count of
  // 5, the index 4.9 is below the count, but is rounded to position 5, which has no element. The index 0.6 is rounded
  // to position 1. The index 40000 is out of range. A missing index is 0.
  ComparedFirst,
  // For elements that a scan finds, and for every kind of element that IGetPNR reads except MIS. The unrounded index is
  // compared with the count. When the index is below the count, the string form of the index is converted to a
  // position. This conversion raises 13 (type mismatch) for a missing index, which compares as 0, and for a Boolean and
  // a date: the string forms of these values are not numbers.
  ComparedFirstConvertedAsText,
};

// The index that was in the caller's bag when this object was constructed. Raises 13 (type mismatch) for an index that
// is not a number, 94 (invalid use of Null) for Null, 91 (object not set) for Nothing, and 6 (overflow) for a position
// that does not fit into 16 bits. With ConvertedFirst, the constructor raises these errors; with the other forms, the
// methods raise them.
class Index {
 public:
  Index(ParamBag& bag, IndexForm form);

  // Whether the index is below the count. Checks only this upper bound: a negative index is below the count too. With
  // ConvertedFirst, compares the rounded position; with the other forms, compares the number before it is rounded.
  bool IsBelow(std::int16_t count) const;

  // Raises `number`, one of the library's own error numbers, when IsBelow(count) is false. A negative index passes.
  void RequireBelow(std::int16_t count, std::int32_t number) const;

  // The index as a 16-bit position, counted from 0; negative for a negative index.
  std::int16_t Position() const;

 private:
  IndexForm form_;
  Value value_;
};

}  // namespace wendrill
