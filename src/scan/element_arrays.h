// The parallel arrays that a scanner fills: one array per output key, all of a kind of one length.
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

// One array: the key that it feeds and what an entry holds before a scanner stores into it (flags: False).
struct ArrayKey {
  TextView name;
  ArrayType type = ArrayType::Text;
  TextView initial = {};
};

class ElementArrays {
 public:
  // No array exists before the first Reset. `keys` must outlive this object.
  explicit ElementArrays(std::span<const ArrayKey> keys) : keys_(keys) {}

  // The keys in the order in which a getter copies them.
  std::span<const ArrayKey> Keys() const { return keys_; }

  // Discards what is there: every array holds index 0 alone, with its initial entry.
  void Reset();

  // Grows every array up to `index`, keeping the contents. Never shrinks. Not before the first Reset.
  void GrowTo(std::int16_t index);

  // The highest index; -1 before the first Reset.
  std::int32_t UpperBound() const;

  // The entry of the array under the n-th key (counted from 0): text or Boolean. 9 outside the arrays' bounds.
  Value At(std::size_t key, std::int32_t index) const;

  // Stores an entry; the caller has grown the arrays and names an array of the type.
  void SetText(std::size_t key, std::int16_t index, TextView text) { Place(key, index) = Stored(text); }
  void SetFlag(std::size_t key, std::int16_t index, bool flag) { Place(key, index).flag = flag; }

 private:
  // One entry: a part of the stored text, or a flag.
  struct Entry {
    std::size_t first = 0;
    std::size_t length = 0;
    bool flag = false;
  };

  Entry Stored(TextView text) {
    if (text.empty()) {
      return {};  // about every second one
    }
    text_.append(text);
    return {.first = text_.size() - text.size(), .length = text.size()};
  }
  Entry& Place(std::size_t key, std::int16_t index) {
    return entries_[static_cast<std::size_t>(index) * keys_.size() + key];
  }

  // A scan stores a dozen short texts for every element. They stand behind one another in one text, and the entries
  // element by element: storing costs a copy and nothing else.
  std::span<const ArrayKey> keys_;
  std::vector<Entry> initial_;  // of an element in which nothing is stored
  std::vector<Entry> entries_;
  std::u16string text_;
};

// The position of a key in a kind's table. Evaluated while compiling: a key that the kind does not have, or that is of
// the other type, does not compile.
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

// One position of every array of a kind: the element that a scanner is storing.
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
