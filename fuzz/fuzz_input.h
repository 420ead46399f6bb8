// The fuzzer's bytes as the text that the targets take.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace wendrill::fuzz {

// Parts an input into texts.
inline constexpr char16_t kFormFeed = u'\f';

// A byte a character.
inline std::u16string TextOf(const std::uint8_t* bytes, std::size_t size) {
  return {bytes, bytes + size};
}

// The texts between form feeds; always at least one.
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

// Ends the program as a finding, saying what was wrong.
[[noreturn]] inline void Report(const std::string& finding) {
  std::fprintf(stderr, "%s\n", finding.c_str());
  std::abort();
}

}  // namespace wendrill::fuzz
