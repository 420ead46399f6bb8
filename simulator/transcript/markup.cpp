#include "transcript/markup.h"

#include <algorithm>
#include <stdexcept>

namespace wendrill::transcript {
namespace {

constexpr std::string_view kLineSeparator = "\xE2\x80\xA8";       // U+2028
constexpr std::string_view kParagraphSeparator = "\xE2\x80\xA9";  // U+2029
constexpr std::size_t kEscapeLength = 6;                          // \uXXXX

bool IsControl(char c) {
  return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

// Appends the Unicode symbol for a control character: U+2400 to U+241F, and U+2421 for DEL.
void AppendPicture(std::string& html, char control) {
  html += "\xE2\x90";
  html += control == 0x7F ? '\xA1' : static_cast<char>(0x80 + control);
}

std::string_view EntityOf(char c) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    default:
      return {};
  }
}

// The UTF-16 code unit of the escape \uXXXX with which `json` begins; 0 when `json` does not begin with a valid \uXXXX,
// and for \u0000.
unsigned EscapedUnit(std::string_view json) {
  if (json.size() < kEscapeLength || !json.starts_with("\\u")) {
    return 0;
  }
  unsigned unit = 0;
  for (const char c : json.substr(2, 4)) {
    const std::string_view digits = "0123456789abcdef0123456789ABCDEF";
    const std::size_t digit = digits.find(c);
    if (digit == std::string_view::npos) {
      return 0;
    }
    unit = unit * 16 + static_cast<unsigned>(digit % 16);
  }
  return unit;
}

bool IsHigh(unsigned unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsLow(unsigned unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

}  // namespace

void AppendText(std::string& html, std::string_view text) {
  std::size_t kept = 0;  // the index of the first byte that is not yet appended
  for (std::size_t at = 0; at < text.size(); ++at) {
    const std::string_view entity = EntityOf(text[at]);
    if (entity.empty() && !IsControl(text[at])) {
      continue;
    }
    html += text.substr(kept, at - kept);
    if (entity.empty()) {
      AppendPicture(html, text[at]);
    } else {
      html += entity;
    }
    kept = at + 1;
  }
  html += text.substr(kept);
}

void AppendData(std::string& html, std::string_view json) {
  while (!json.empty()) {
    const std::size_t plain = std::min(json.find_first_of("<\xE2"), json.size());
    html += json.substr(0, plain);
    json.remove_prefix(plain);
    if (json.starts_with('<')) {
      html += "\\u003c";
      json.remove_prefix(1);
    } else if (json.starts_with(kLineSeparator) || json.starts_with(kParagraphSeparator)) {
      html += json.starts_with(kLineSeparator) ? "\\u2028" : "\\u2029";
      json.remove_prefix(kLineSeparator.size());
    } else if (!json.empty()) {
      html += json.front();
      json.remove_prefix(1);
    }
  }
}

std::string WithoutLoneSurrogates(std::string_view json) {
  std::string repaired;
  repaired.reserve(json.size());
  while (!json.empty()) {
    const std::size_t plain = std::min(json.find('\\'), json.size());
    repaired += json.substr(0, plain);
    json.remove_prefix(plain);
    const unsigned unit = EscapedUnit(json);
    // An escape other than \uXXXX has two characters. Its two characters are copied together, so that the second
    // backslash of \\ is not taken for the start of another escape.
    std::size_t length = std::min<std::size_t>(2, json.size());
    if (unit != 0) {
      const bool isPair = IsHigh(unit) && IsLow(EscapedUnit(json.substr(kEscapeLength)));
      length = isPair ? 2 * kEscapeLength : kEscapeLength;
      if (!isPair && (IsHigh(unit) || IsLow(unit))) {
        repaired += "\\ufffd";
        json.remove_prefix(length);
        continue;
      }
    }
    repaired += json.substr(0, length);
    json.remove_prefix(length);
  }
  return repaired;
}

std::string Filled(std::string_view page, std::span<const Part> parts) {
  std::string filled;
  for (;;) {
    const std::size_t begin = page.find('@');
    const std::size_t end = begin == std::string_view::npos ? begin : page.find('@', begin + 1);
    if (end == std::string_view::npos) {
      return filled.append(page);
    }
    const std::string_view name = page.substr(begin + 1, end - begin - 1);
    const auto part = std::ranges::find(parts, name, &Part::name);
    if (part == parts.end()) {
      throw std::logic_error("the page has no part " + std::string(name));
    }
    filled.append(page.substr(0, begin)).append(part->text);
    page.remove_prefix(end + 1);
  }
}

}  // namespace wendrill::transcript
