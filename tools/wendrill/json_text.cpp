#include "json_text.h"

#include <algorithm>
#include <array>

namespace wendrill::tool {
namespace {

bool IsPlain(char16_t character) {
  return (character >= 0x20) & (character < 0x80) & (character != u'"') & (character != u'\\');
}

// Whether JSON needs no escape for any character of the text, and all are ASCII. Nearly every text is plain, so the
// loops of this function and of AppendNarrowed have no branches: compilers turn them into vector instructions.
bool IsPlain(TextView text) {
  std::uint16_t others = 0;
  for (const char16_t character : text) {
    others = static_cast<std::uint16_t>(others | (IsPlain(character) ? 0 : 0xFFFF));
  }
  return others == 0;
}

void AppendNarrowed(std::string& json, TextView plain) {
  const std::size_t before = json.size();
  json.resize(before + plain.size());
  char* to = json.data() + before;
  for (std::size_t i = 0; i < plain.size(); ++i) {
    to[i] = static_cast<char>(plain[i]);
  }
}

void AppendEscape(std::string& json, char16_t character) {
  constexpr std::array<char, 16> kDigits = {'0', '1', '2', '3', '4', '5', '6', '7',
                                            '8', '9', 'a', 'b', 'c', 'd', 'e', 'f'};
  if (character == u'"' || character == u'\\') {
    json.append({'\\', static_cast<char>(character)});
    return;
  }
  json.append("\\u00");
  json.push_back(kDigits.at(character >> 4 & 0xF));
  json.push_back(kDigits.at(character & 0xF));
}

void AppendEscaped(std::string& json, TextView text) {
  const auto isAscii = [](char16_t each) { return each < 0x80; };
  while (!text.empty()) {
    const auto other = static_cast<std::size_t>(std::ranges::find_if(text, isAscii) - text.begin());
    json.append(ToUtf8(text.substr(0, other)));
    text.remove_prefix(other);
    const auto plain = static_cast<std::size_t>(
        std::ranges::find_if_not(text, [](char16_t each) { return IsPlain(each); }) - text.begin());
    AppendNarrowed(json, text.substr(0, plain));
    text.remove_prefix(plain);
    if (!text.empty() && isAscii(text.front())) {
      AppendEscape(json, text.front());
      text.remove_prefix(1);
    }
  }
}

}  // namespace

void JsonText::String(TextView text) {
  Separate();
  text_.push_back('"');
  if (IsPlain(text)) {
    AppendNarrowed(text_, text);
  } else {
    AppendEscaped(text_, text);
  }
  text_.push_back('"');
}

}  // namespace wendrill::tool
