// A string that a component returned, in the memory that the component allocated.
#pragma once

#include <cstddef>
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
  ReceivedText(std::u16string text) : own_(std::move(text)) {}

  // Takes ownership of `length` characters and frees them with `free`.
  ReceivedText(char16_t* characters, std::size_t length, Free free)
      : characters_(characters), length_(length), free_(free) {}

  ReceivedText(ReceivedText&& other) noexcept
      : own_(std::move(other.own_)),
        characters_(std::exchange(other.characters_, nullptr)),
        length_(other.length_),
        free_(other.free_) {}
  ReceivedText& operator=(ReceivedText&& other) noexcept {
    std::swap(own_, other.own_);
    std::swap(characters_, other.characters_);
    std::swap(length_, other.length_);
    std::swap(free_, other.free_);
    return *this;
  }
  ~ReceivedText() {
    if (characters_ != nullptr) {
      free_(characters_);
    }
  }

  std::u16string_view View() const {
    return characters_ != nullptr ? std::u16string_view(characters_, length_) : std::u16string_view(own_);
  }

  friend bool operator==(const ReceivedText& text, std::u16string_view other) { return text.View() == other; }

  // The string as a std::u16string: moved out when the library built it, copied when a component did.
  operator std::u16string() && { return Take(); }
  std::u16string Take() { return characters_ != nullptr ? std::u16string(View()) : std::move(own_); }

  // Transfers ownership of the memory to a caller who frees it with `free`. Returns null and keeps ownership when the
  // memory needs another function or is the library's own.
  char16_t* Release(Free free) {
    return characters_ != nullptr && free_ == free ? std::exchange(characters_, nullptr) : nullptr;
  }

 private:
  std::u16string own_;
  char16_t* characters_ = nullptr;
  std::size_t length_ = 0;
  Free free_ = nullptr;
};

}  // namespace wendrill
