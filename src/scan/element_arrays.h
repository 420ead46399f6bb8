// The parallel arrays that a scanner fills. A kind of element has one array for each of its output keys, and all arrays
// of a kind have the same length.
//
// To callers these look like separate arrays: an index outside the bounds raises 9, growing keeps the contents, and
// each array has its own initial entry. Internally, one table stores all arrays of a kind, with a row for each element
// and a column for each key:
//
//                  key 0    key 1    key 2
//     index 0    [ entry    entry    entry     an entry is a flag, or a range (first, length) of text_
//     index 1      entry    entry    entry ]
//     text_        "SSR VGMLHK1..."            all stored texts, one after another
//
// A scan stores a dozen short texts for each element, and every count repeats the scan. With one string for each entry,
// each text would cost an allocation; appending to the one string text_ costs only a copy. About every second text is
// empty and adds nothing to text_.
//
// Invariants:
//   - entries_.size() is a multiple of keys_.size(). The quotient is the length of every array; it is 0 only before the
//     first Reset.
//   - Every text entry is a range inside text_. Until the next Reset, text_ only grows, so that ranges stay valid. A
//     range is an offset and a length, not a view, because growing moves the characters. When a second text is stored
//     in an entry, the first one stays in text_, unused.
//   - initial_ is the row of an element in which nothing is stored yet. The ranges of initial_ are part of text_ too.
//
// The keys of a kind are a constexpr table. KeyOf finds a key in this table at compile time: a key that the kind does
// not have, or that has the other type, does not compile.
//
// Tests: tests/unit/scan/element_arrays_test.cpp. Also, tests/unit/scan/random_comparison_test.cpp and
// fuzz/scanner_fuzz.cpp compare every scanner with its slow reference implementation on random displays.
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

// One array: its key, its type, and the initial value of its entries. The initial value of a flag is False.
struct ArrayKey {
  TextView name;
  ArrayType type = ArrayType::Text;
  TextView initial = {};
};

class ElementArrays {
 public:
  // The arrays have no entries before the first Reset. REQUIRES: `keys` outlive this object.
  explicit ElementArrays(std::span<const ArrayKey> keys) : keys_(keys) {}

  // The keys in the order in which a getter copies their values.
  std::span<const ArrayKey> Keys() const { return keys_; }

  // Discards all contents. Every array then has one entry, its initial entry, at index 0.
  void Reset();

  // Makes `index` a valid index of every array and keeps the contents. Never shrinks the arrays. REQUIRES: Reset has
  // been called.
  void GrowTo(std::int16_t index);

  // The highest index of the arrays; -1 before the first Reset.
  std::int32_t UpperBound() const;

  // The entry at `index` of the array whose key has the position `key` in Keys() (counted from 0): a string or a
  // Boolean. Raises 9 for an index outside the bounds.
  Value At(std::size_t key, std::int32_t index) const;

  // Stores a value in the entry of a key at `index`. REQUIRES: GrowTo(index) has been called. The type of the key is
  // Text for SetText and Flag for SetFlag.
  void SetText(std::size_t key, std::int16_t index, TextView text) { Place(key, index) = Stored(text); }
  void SetFlag(std::size_t key, std::int16_t index, bool flag) { Place(key, index).flag = flag; }

 private:
  // One entry: the range (first, length) of a text in text_, or a flag.
  struct Entry {
    std::size_t first = 0;
    std::size_t length = 0;
    bool flag = false;
  };

  Entry Stored(TextView text) {
    if (text.empty()) {
      return {};  // frequent: about every second text is empty
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

// The position (counted from 0) of a key in a kind's table, found at compile time.
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

// Stores the fields of one element: the entries at one index of all arrays of a kind. Each kind derives its own Record
// from this class and passes Record, not ElementRecord<kKeys>, to shared templates. The reason: for a template
// instantiated with ElementRecord<kKeys>, GCC 14 emits the same symbol in every file whose table is called kKeys. The
// linker then keeps the code of one kind and uses it for the others too.
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
