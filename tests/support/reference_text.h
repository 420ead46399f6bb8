// The text functions of the reference implementations. Positions are counted from 1; InStr returns 0 when the needle is
// not found. The functions are written to be obvious, not fast.
#pragma once

#include <string>

namespace wendrill::testing {

inline std::u16string Mid(const std::u16string& text, int first, int length) {
  std::u16string result;
  for (int position = first; position < first + length; ++position) {
    if (position >= 1 && position <= static_cast<int>(text.size())) {
      result += text[static_cast<std::size_t>(position - 1)];
    }
  }
  return result;
}

inline std::u16string MidToEnd(const std::u16string& text, int first) {
  return Mid(text, first, static_cast<int>(text.size()) + 1);
}

inline std::u16string Left(const std::u16string& text, int length) {
  return Mid(text, 1, length);
}

inline std::u16string Right(const std::u16string& text, int length) {
  const int size = static_cast<int>(text.size());
  return size <= length ? text : Mid(text, size - length + 1, length);
}

inline int InStr(int from, const std::u16string& text, const std::u16string& sought) {
  const auto found = text.find(sought, static_cast<std::size_t>(from - 1));
  return found == std::u16string::npos ? 0 : static_cast<int>(found) + 1;
}

inline int InStr(const std::u16string& text, const std::u16string& sought) {
  return InStr(1, text, sought);
}

inline std::u16string LTrim(std::u16string text) {
  while (!text.empty() && text.front() == u' ') {
    text.erase(text.begin());
  }
  return text;
}

inline std::u16string RTrim(std::u16string text) {
  while (!text.empty() && text.back() == u' ') {
    text.pop_back();
  }
  return text;
}

inline std::u16string Trim(const std::u16string& text) {
  return LTrim(RTrim(text));
}

inline bool IsDigitAt(const std::u16string& text, int position) {
  const std::u16string character = Mid(text, position, 1);
  return !character.empty() && character >= u"0" && character <= u"9";
}

// The n-th field, counted from 1, of the text split at every delimiter; empty when there are fewer fields.
inline std::u16string Field(const std::u16string& text, int n, const std::u16string& delimiter) {
  int start = 1;
  for (int field = 1;; ++field) {
    const int end = InStr(start, text, delimiter);
    if (field == n) {
      return end == 0 ? MidToEnd(text, start) : Mid(text, start, end - start);
    }
    if (end == 0) {
      return u"";
    }
    start = end + static_cast<int>(delimiter.size());
  }
}

inline std::u16string CutBefore(const std::u16string& text, const std::u16string& mark) {
  return Field(text, 1, mark);
}

// The n-th line, counted from 1; empty when there are fewer lines. The text is split at its line breaks; a text without
// line breaks is cut into rows of 80.
inline std::u16string Line(const std::u16string& text, int n) {
  if (text.find_first_of(u"\r\n") == std::u16string::npos) {
    return Mid(text, (n - 1) * 80 + 1, 80);
  }
  std::u16string line;
  int number = 1;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isBreak = text[i] == u'\r' || text[i] == u'\n';
    if (!isBreak) {
      line += text[i];
      continue;
    }
    if (number == n) {
      return line;
    }
    line.clear();
    ++number;
    if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') {
      ++i;
    }
  }
  return number == n ? line : u"";
}

}  // namespace wendrill::testing
