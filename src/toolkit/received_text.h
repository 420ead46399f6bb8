// A text as a component handed it out.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace wendrill {

// Stays in the memory in which it came, so that a text that only passes through the library is never copied: displays
// are long, and copying one twice takes longer than the call that brought it.
class ReceivedText {
 public:
  // Gives the memory back to whoever it came from.
  using Free = void (*)(char16_t* characters);

  ReceivedText() = default;

  // A text of our own.
  ReceivedText(std::u16string text) : own_(std::move(text)) {}

  // Takes over `characters`.
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

  // A copy, unless the text is our own.
  operator std::u16string() && { return Take(); }
  std::u16string Take() { return characters_ != nullptr ? std::u16string(View()) : std::move(own_); }

  // Hands the memory on to one who frees it with `free`; null, and nothing happens, when it is not freed so.
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
