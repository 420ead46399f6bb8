#include "json_text.h"

#include <algorithm>
#include <array>

namespace wendrill::tool {
namespace {

bool IsPlain(char16_t character) {
  return character >= 0x20 && character < 0x80 && character != u'"' && character != u'\\';
}

void AppendEscaped(std::string& text, char16_t character) {
  constexpr std::array<char, 16> kDigits = {'0', '1', '2', '3', '4', '5', '6', '7',
                                            '8', '9', 'a', 'b', 'c', 'd', 'e', 'f'};
  if (character == u'"' || character == u'\\') {
    text.append({'\\', static_cast<char>(character)});
    return;
  }
  text.append("\\u00");
  text.push_back(kDigits.at(character >> 4 & 0xF));
  text.push_back(kDigits.at(character & 0xF));
}

}  // namespace

void JsonText::String(TextView text) {
  Separate();
  text_.push_back('"');
  for (std::size_t at = 0; at < text.size();) {
    const TextView rest = text.substr(at);
    const auto plain = static_cast<std::size_t>(std::ranges::find_if_not(rest, IsPlain) - rest.begin());
    text_.append(rest.begin(), rest.begin() + plain);
    at += plain;
    const TextView after = rest.substr(plain);
    const auto isAscii = [](char16_t each) { return each < 0x80; };
    const auto other = static_cast<std::size_t>(std::ranges::find_if(after, isAscii) - after.begin());
    if (other > 0) {
      text_.append(ToUtf8(after.substr(0, other)));
      at += other;
    }
    if (plain == 0 && other == 0) {
      AppendEscaped(text_, text[at++]);
    }
  }
  text_.push_back('"');
}

}  // namespace wendrill::tool
