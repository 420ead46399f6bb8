// A string that a component returned, in the memory that the component allocated.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace wendrill {

// Owns the component's string instead of a copy of it, so that a display that the library only forwards to its caller
// is never copied: copying a long display twice takes longer than the call that returned it.
class ReceivedText {
 public:
  // Frees the memory with the allocator that it came from.
  using Free = void (*)(char16_t* characters);

  ReceivedText() = default;

  // A string that the library built itself.
  ReceivedText(std::u16string text) : own_(std::make_unique<std::u16string>(std::move(text))) {}

  // Takes ownership of `length` characters and frees them with `free`.
  ReceivedText(char16_t* characters, std::size_t length, Free free) : characters_(characters, free), length_(length) {}

  std::u16string_view View() const {
    return own_ ? std::u16string_view(*own_) : std::u16string_view(characters_.get(), characters_ ? length_ : 0);
  }

  friend bool operator==(const ReceivedText& text, std::u16string_view other) { return text.View() == other; }

  // The string as a std::u16string: moved out when the library built it, copied when a component did.
  operator std::u16string() && { return Take(); }
  std::u16string Take() { return own_ ? std::move(*own_) : std::u16string(View()); }

  // Transfers ownership of the memory to a caller who frees it with `free`. Returns null and keeps ownership when the
  // memory needs another function or is the library's own.
  char16_t* Release(Free free) { return characters_.get_deleter() == free ? characters_.release() : nullptr; }

 private:
  std::unique_ptr<std::u16string> own_;  // in memory of its own, so that a component's string is quick to move
  std::unique_ptr<char16_t, Free> characters_{nullptr, nullptr};
  std::size_t length_ = 0;
};

}  // namespace wendrill
