// ReceivedText: a string in the memory that a component allocated for it, or a string that the library built.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace wendrill {

// A string with a single owner. A string that a component allocated stays in the component's memory instead of being
// copied. So a display that the library only forwards to its caller is never copied: copying a long display twice takes
// longer than the call that returned the display.
class ReceivedText {
 public:
  // A function that frees the memory of a string with the allocator that allocated the memory.
  using Free = void (*)(char16_t* characters);

  ReceivedText() = default;

  // Holds a string that the library built.
  ReceivedText(std::u16string text) : own_(std::make_unique<std::u16string>(std::move(text))) {}

  // Takes ownership of the `length` characters at `characters`, which will be freed with `free`.
  ReceivedText(char16_t* characters, std::size_t length, Free free) : characters_(characters, free), length_(length) {}

  // The characters of the string, as a view that is valid while this object owns the string.
  std::u16string_view View() const {
    return own_ ? std::u16string_view(*own_) : std::u16string_view(characters_.get(), characters_ ? length_ : 0);
  }

  friend bool operator==(const ReceivedText& text, std::u16string_view other) { return text.View() == other; }

  // The string as a std::u16string: moved out when the library built the string, copied when a component allocated the
  // string.
  operator std::u16string() && { return Take(); }
  std::u16string Take() { return own_ ? std::move(*own_) : std::u16string(View()); }

  // Transfers ownership of the memory to a caller that frees it with `free`, and returns the memory. Returns null and
  // keeps ownership when the memory must be freed with another function, or when the library built the string.
  char16_t* Release(Free free) { return characters_.get_deleter() == free ? characters_.release() : nullptr; }

 private:
  std::unique_ptr<std::u16string> own_;  // null for a component's string; on the heap, so that an object moves quickly
  std::unique_ptr<char16_t, Free> characters_{nullptr, nullptr};
  std::size_t length_ = 0;
};

}  // namespace wendrill
