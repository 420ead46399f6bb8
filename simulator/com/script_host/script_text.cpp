#include "script_text.h"

#include <algorithm>
#include <cwchar>
#include <cwctype>

namespace wendrill::script_host {

namespace {

bool BeginsName(wchar_t character) {
  return std::iswalpha(character) != 0 || character == L'_' || character == L'$';
}
bool ContinuesName(wchar_t character) {
  return BeginsName(character) || std::iswdigit(character) != 0;
}

class Reader {
 public:
  Reader(std::wstring_view text, Language language) : text_(text), language_(language) {}

  std::vector<Token> Read() {
    while (position_ < text_.size()) {
      ReadOne();
    }
    return std::move(tokens_);
  }

 private:
  using Kind = Token::Kind;

  wchar_t At(std::size_t offset) const { return position_ + offset < text_.size() ? text_[position_ + offset] : L'\0'; }

  bool IsVbs() const { return language_ == Language::VBScript; }

  void ReadOne() {
    const wchar_t character = At(0);
    if (character == L'\n') {
      Add(Kind::LineEnd, 1);
    } else if (std::iswspace(character) != 0) {
      ++position_;
    } else if (IsVbs() ? BeginsVbsComment() : character == L'/' && At(1) == L'/') {
      SkipTo(L"\n");
    } else if (!IsVbs() && character == L'/' && At(1) == L'*') {
      SkipPast(L"*/");
    } else if (!IsVbs() && character == L'/' && MayBeginPattern()) {
      ReadString(L'/');
    } else if (character == L'"' || (!IsVbs() && character == L'\'')) {
      ReadString(character);
    } else if (IsVbs() && character == L'_' && ContinuesLine()) {
      SkipPast(L"\n");
    } else if (BeginsName(character)) {
      Add(Kind::Name, LengthWhile(ContinuesName));
    } else if (std::iswdigit(character) != 0) {
      Add(Kind::Number, LengthWhile([](wchar_t next) { return ContinuesName(next) || next == L'.'; }));
    } else {
      Add(Kind::Symbol, 1);
    }
  }

  template <typename Test>
  std::size_t LengthWhile(Test test) const {
    std::size_t length = 1;
    while (position_ + length < text_.size() && test(text_[position_ + length])) {
      ++length;
    }
    return length;
  }

  void Add(Kind kind, std::size_t length) {
    tokens_.push_back({kind, text_.substr(position_, length), line_, Column()});
    Advance(length);
  }

  ULONG Column() const { return static_cast<ULONG>(position_ - lineStart_ + 1); }

  void Advance(std::size_t length) {
    for (const std::size_t end = std::min(position_ + length, text_.size()); position_ < end; ++position_) {
      if (text_[position_] == L'\n') {
        ++line_;
        lineStart_ = position_ + 1;
      }
    }
  }

  void SkipTo(std::wstring_view mark) { Advance(std::min(text_.find(mark, position_), text_.size()) - position_); }
  void SkipPast(std::wstring_view mark) {
    SkipTo(mark);
    Advance(mark.size());
  }

  bool BeginsVbsComment() const {
    if (At(0) == L'\'') {
      return true;
    }
    const bool atStart = tokens_.empty() || tokens_.back().kind == Kind::LineEnd || tokens_.back().Is(L':');
    return atStart && SameName(text_.substr(position_, 3), L"Rem", language_) && !ContinuesName(At(3));
  }

  bool ContinuesLine() const {
    const std::size_t next = text_.find_first_not_of(L" \t\r", position_ + 1);
    return next != std::wstring_view::npos && text_[next] == L'\n';
  }

  // Whether a "/" at the current position of a JScript text begins a regular expression. Returns false when the "/" is
  // a division, because the token before it is a name, a number, a string, ")" or "]". A keyword counts as a name, so
  // the "/" of a regular expression directly after `return` is taken for a division.
  bool MayBeginPattern() const {
    if (tokens_.empty()) {
      return true;
    }
    const Token& last = tokens_.back();
    return (last.kind == Kind::Symbol && !last.Is(L')') && !last.Is(L']')) || last.kind == Kind::LineEnd;
  }

  // Adds one String token: a string up to its closing quote, or to the end of the line when the closing quote is
  // missing. With "/" as `quote`, the token is a regular expression of JScript.
  void ReadString(wchar_t quote) {
    std::size_t length = 1;
    while (At(length) != L'\0' && At(length) != L'\n') {
      if (!IsVbs() && At(length) == L'\\') {
        ++length;
      } else if (At(length) == quote) {
        if (!IsVbs() || At(length + 1) != quote) {
          break;
        }
        ++length;  // in VBScript a doubled quote is a character of the string
      }
      ++length;
    }
    tokens_.push_back({Kind::String, text_.substr(position_ + 1, length - 1), line_, Column()});
    Advance(length + (At(length) == quote ? 1 : 0));
  }

  std::wstring_view text_;
  Language language_;
  std::size_t position_ = 0;
  std::size_t lineStart_ = 0;
  ULONG line_ = 1;
  std::vector<Token> tokens_;
};

}  // namespace

bool Token::IsName(std::wstring_view name, Language language) const {
  return kind == Kind::Name && SameName(text, name, language);
}

bool SameName(std::wstring_view left, std::wstring_view right, Language language) {
  if (language == Language::JScript) {
    return left == right;
  }
  return left.size() == right.size() && _wcsnicmp(left.data(), right.data(), left.size()) == 0;
}

std::vector<Token> TokensOf(std::wstring_view text, Language language) {
  return Reader(text, language).Read();
}

std::vector<Token> StatementAt(const std::vector<Token>& tokens, ULONG line, ULONG column, Language language) {
  auto token = std::find_if(tokens.begin(), tokens.end(), [&](const Token& candidate) {
    return candidate.line > line || (candidate.line == line && candidate.column >= column);
  });
  std::vector<Token> statement;
  int depth = 0;
  for (; token != tokens.end(); ++token) {
    depth += token->Is(L'(') || token->Is(L'[') || token->Is(L'{') ? 1 : 0;
    depth -= token->Is(L')') || token->Is(L']') || token->Is(L'}') ? 1 : 0;
    const bool isLineEnd = token->kind == Token::Kind::LineEnd;
    const bool ends =
        language == Language::VBScript ? isLineEnd || token->Is(L':') : depth <= 0 && (isLineEnd || token->Is(L';'));
    if (ends || depth < 0) {
      break;
    }
    if (!isLineEnd) {
      statement.push_back(*token);
    }
  }
  return statement;
}

}  // namespace wendrill::script_host
