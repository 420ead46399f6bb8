// Converts the fuzzer's bytes to the texts that the fuzz targets test.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace wendrill::fuzz {

// The character that separates the texts of an input.
inline constexpr char16_t kFormFeed = u'\f';

// The bytes as text: each byte is one character.
inline std::u16string TextOf(const std::uint8_t* bytes, std::size_t size) {
  return {bytes, bytes + size};
}

// The texts that the form feeds of the input separate. There is always at least one text, possibly empty.
inline std::vector<std::u16string> TextsOf(const std::uint8_t* bytes, std::size_t size) {
  std::vector<std::u16string> texts(1);
  for (const char16_t character : TextOf(bytes, size)) {
    if (character == kFormFeed) {
      texts.emplace_back();
    } else {
      texts.back() += character;
    }
  }
  return texts;
}

// Prints the finding and aborts the program, so that the fuzzer saves the input.
[[noreturn]] inline void Report(const std::string& finding) {
  std::fprintf(stderr, "%s\n", finding.c_str());
  std::abort();
}

}  // namespace wendrill::fuzz
