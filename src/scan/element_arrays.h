// The parallel arrays that a scanner fills: for each kind of element one array per output key, all of the same length.
//
// To callers they look like arrays: an index outside the bounds raises 9, growing keeps the contents, and each array
// has its own initial entry. Inside, one table with a row per element and a column per key holds them all:
//
//                  key 0    key 1    key 2
//     index 0    [ entry    entry    entry     an entry is a flag, or a range (first, length) of text_
//     index 1      entry    entry    entry ]
//     text_        "SSR VGMLHK1..."            all stored texts, one after another
//
// A scan stores a dozen short texts for each element and is repeated on every count. One string per entry would cost an
// allocation each; appending to one string costs a copy. About every second text is empty and is not stored at all.
//
// Invariants:
//   - entries_.size() is a multiple of keys_.size(); the quotient is the length of every array. It is 0 only before the
//     first Reset.
//   - Every text entry is a range inside text_. text_ only grows until the next Reset, so ranges stay valid; they are
//     offsets and not views, because growing moves the characters. Storing an entry again leaves the old text unused.
//   - initial_ is the row of an element in which nothing is stored yet; its ranges are part of text_ too.
//
// The keys of a kind are a constexpr table. KeyOf looks a key up in it while compiling, so a key that the kind does not
// have, or that is of the other type, does not compile.
//
// Tested by tests/unit/scan/element_arrays_test.cpp, and through every scanner beside its slow reference on random
// displays (tests/unit/scan/random_comparison_test.cpp) and in fuzz/scanner_fuzz.cpp.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "common/text.h"
#include "common/value.h"

namespace wendrill {

enum class ArrayType { Text, Flag };

// One array: its key, and the initial value of its entries (flags: False).
struct ArrayKey {
  TextView name;
  ArrayType type = ArrayType::Text;
  TextView initial = {};
};

class ElementArrays {
 public:
  // No array exists before the first Reset. REQUIRES: `keys` outlive this object.
  explicit ElementArrays(std::span<const ArrayKey> keys) : keys_(keys) {}

  // The keys in the order in which a getter copies them.
  std::span<const ArrayKey> Keys() const { return keys_; }

  // Discards all contents. Every array then has index 0 only, with its initial entry.
  void Reset();

  // Grows every array up to `index` and keeps the contents. Never shrinks. REQUIRES: Reset has been called.
  void GrowTo(std::int16_t index);

  // The highest index; -1 before the first Reset.
  std::int32_t UpperBound() const;

  // The entry at `index` of the array of the n-th key (counted from 0): a string or a Boolean. Raises 9 for an index
  // outside the bounds.
  Value At(std::size_t key, std::int32_t index) const;

  // Stores an entry. REQUIRES: GrowTo(index), and a key of this type.
  void SetText(std::size_t key, std::int16_t index, TextView text) { Place(key, index) = Stored(text); }
  void SetFlag(std::size_t key, std::int16_t index, bool flag) { Place(key, index).flag = flag; }

 private:
  // One entry: a range of text_, or a flag.
  struct Entry {
    std::size_t first = 0;
    std::size_t length = 0;
    bool flag = false;
  };

  Entry Stored(TextView text) {
    if (text.empty()) {
      return {};  // about every second text is empty
    }
    text_.append(text);
    return {.first = text_.size() - text.size(), .length = text.size()};
  }
  Entry& Place(std::size_t key, std::int16_t index) {
    return entries_[static_cast<std::size_t>(index) * keys_.size() + key];
  }

  std::span<const ArrayKey> keys_;
  std::vector<Entry> initial_;  // the row of an element in which nothing is stored yet
  std::vector<Entry> entries_;
  std::u16string text_;
};

// The position of a key in a kind's table, found at compile time.
template <const auto& Keys, ArrayType Type>
class KeyOf {
 public:
  consteval KeyOf(const char16_t* name) : position_(PositionOf(name)) {}
  constexpr std::size_t Position() const { return position_; }

 private:
  static consteval std::size_t PositionOf(TextView name) {
    for (std::size_t i = 0; i < std::size(Keys); ++i) {
      if (Keys[i].name == name && Keys[i].type == Type) {
        return i;
      }
    }
    throw "the kind has no such key of this type";
  }

  std::size_t position_;
};

// One index in all arrays of a kind: the element that a scanner is storing. Each kind derives a Record of its own from
// this class and passes that to shared templates: GCC 14 gives a template instantiated with ElementRecord<kKeys> itself
// one symbol in all files whose tables are called kKeys, and the linker then keeps the code of one kind for the others.
template <const auto& Keys>
class ElementRecord {
 public:
  ElementRecord(ElementArrays& arrays, std::int16_t index) : arrays_(arrays), index_(index) {}

  void Set(KeyOf<Keys, ArrayType::Text> key, TextView text) { arrays_.SetText(key.Position(), index_, text); }
  void SetFlag(KeyOf<Keys, ArrayType::Flag> key, bool flag) { arrays_.SetFlag(key.Position(), index_, flag); }

 private:
  ElementArrays& arrays_;
  std::int16_t index_;
};

}  // namespace wendrill
