// Splits a row into words. Also finds, at compile time, a property in the property list of an object type.
#pragma once

#include <algorithm>
#include <cstddef>

#include "common/text.h"
#include "derive/object_model.h"

namespace wendrill::simulator {

inline bool IsCapitalOrDigit(char16_t character) {
  return IsCapital(character) || IsDigit(character);
}

// Enumerates the words of a text, which are separated by one or more blanks.
class Words {
 public:
  explicit Words(TextView text) : rest_(TrimmedLeft(text)) {}

  // The next word; empty after the last word.
  TextView Next() {
    const TextView word = Peek();
    rest_ = TrimmedLeft(rest_.substr(word.size()));
    return word;
  }

  TextView Peek() const { return rest_.substr(0, rest_.find(kBlank)); }

  // The rest of the text, which begins with the next word.
  TextView Rest() const { return rest_; }

 private:
  TextView rest_;
};

// The index (counted from 0) of a property in the property list of its object type, found at compile time. A name that
// the list does not contain is a compile error.
template <const auto& Properties>
class PropertyName {
 public:
  consteval PropertyName(const char16_t* name) : place_(PlaceOf(name)) {}
  constexpr std::size_t Place() const { return place_; }

 private:
  static consteval std::size_t PlaceOf(TextView name) {
    for (std::size_t i = 0; i < std::size(Properties); ++i) {
      if (Properties[i].name == name) {
        return i;
      }
    }
    throw "the type has no such property";
  }

  std::size_t place_;
};

template <const auto& Properties>
consteval std::size_t PlaceIn(const char16_t* name) {
  return PropertyName<Properties>(name).Place();
}

}  // namespace wendrill::simulator
