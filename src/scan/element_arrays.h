// The parallel arrays that a scanner fills. A kind of element has one array for each of its output keys, and all arrays
// of a kind have the same length. In this file, an entry is an item of an array.
//
// Callers see separate arrays. An index outside the bounds raises 9 (index out of range). GrowTo lengthens all arrays
// of a kind and keeps their contents; each new index of an array gets the initial entry of that array. Internally, one
// table stores all arrays of a kind, with a row for each element and a column for each key:
//
//                  key 0    key 1    key 2
//     index 0    [ entry    entry    entry     an entry is a flag, or a range (first, length) of text_
//     index 1      entry    entry    entry ]
//     text_        "SSR VGMLHK1..."            all stored texts, one after another
//
// A scan stores a dozen short texts for each element, and every count repeats the scan. If every array entry were a
// string of its own, each text would cost an allocation. Appending the text to the one string text_ costs only a copy.
// About every second text is empty and adds nothing to text_.
//
// Invariants:
//   - entries_.size() is a multiple of keys_.size(). The quotient is the length of every array; it is 0 only before the
//     first Reset.
//   - Every text entry is a range inside text_. Until the next Reset, text_ only grows, so that ranges stay valid. A
//     range is an offset and a length, not a view, because growing moves the characters. When a second text is stored
//     in an array entry, the first text stays in text_, unused.
//   - initial_ is the table row of an element for which nothing is stored yet. The ranges of initial_ are part of text_
//     too.
//
// The keys of a kind are a constexpr table. KeyOf finds a key in the kind's table at compile time. A name that the
// table does not contain, or that the table contains with the other ArrayType, is a compile error.
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

// One array: its key, its type, and the initial value of its entries. `initial` is for arrays of texts; the initial
// value of a flag is False.
struct ArrayKey {
  TextView name;
  ArrayType type = ArrayType::Text;
  TextView initial = {};
};

class ElementArrays {
 public:
  // The arrays are empty before the first Reset. REQUIRES: `keys` outlive this object.
  explicit ElementArrays(std::span<const ArrayKey> keys) : keys_(keys) {}

  // The keys in the order in which a getter copies their values.
  std::span<const ArrayKey> Keys() const { return keys_; }

  // Discards all contents. Every array then has length 1: its initial entry at index 0.
  void Reset();

  // Makes `index` a valid index of every array and keeps the contents; new indexes get the initial entries. Never
  // shrinks the arrays. REQUIRES: Reset has been called.
  void GrowTo(std::int16_t index);

  // The highest index of the arrays; -1 before the first Reset.
  std::int32_t UpperBound() const;

  // The value at `index` of one array: a string for a Text array, a Boolean for a Flag array. `key` is the position
  // (counted from 0) of the array's key in Keys(). Raises 9 (index out of range) for an index outside the bounds.
  Value At(std::size_t key, std::int32_t index) const;

  // Stores a value at `index` of the array whose key has the position `key` in Keys(). REQUIRES: GrowTo(index) has been
  // called. The type of the key is Text for SetText and Flag for SetFlag.
  void SetText(std::size_t key, std::int16_t index, TextView text) { Place(key, index) = Stored(text); }
  void SetFlag(std::size_t key, std::int16_t index, bool flag) { Place(key, index).flag = flag; }

 private:
  // One array entry: the range (first, length) of a text in text_, or a flag. The type of the array decides which.
  struct Entry {
    std::size_t first = 0;
    std::size_t length = 0;
    bool flag = false;
  };

  Entry Stored(TextView text) {
    if (text.empty()) {
      return {};  // a shortcut, because about every second text is empty
    }
    text_.append(text);
    return {.first = text_.size() - text.size(), .length = text.size()};
  }
  Entry& Place(std::size_t key, std::int16_t index) {
    return entries_[static_cast<std::size_t>(index) * keys_.size() + key];
  }

  std::span<const ArrayKey> keys_;
  std::vector<Entry> initial_;  // the table row of an element for which nothing is stored yet
  std::vector<Entry> entries_;
  std::u16string text_;
};

// The position (counted from 0) of a key in the table Keys, found at compile time by the key's name and type. A name
// that Keys does not contain with the type is a compile error.
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

// Stores the fields of one element at its index in all arrays of a kind. Each kind derives its own Record from this
// class and passes Record, not ElementRecord<kKeys>, to shared templates. The reason: every file calls its table of
// keys kKeys. For a template instantiated with ElementRecord<kKeys>, GCC 14 emits the same symbol in every such file,
// and the linker then uses the code of one kind for all kinds.
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
