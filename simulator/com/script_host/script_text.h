// The words of a script's text, as far as error messages need them. No parser: what does not fit is skipped.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace wendrill::script_host {

enum class Language { VBScript, JScript };

struct Token {
  enum class Kind { Name, Number, String, Symbol, LineEnd };

  Kind kind;
  std::wstring_view text;  // of a string: without its quotes
  ULONG line;              // counted from 1
  ULONG column;            // counted from 1

  bool Is(wchar_t symbol) const { return kind == Kind::Symbol && text.size() == 1 && text[0] == symbol; }
  bool IsName(std::wstring_view name, Language language) const;
};

// Tokens in order. Comments are skipped; a line that VBScript continues with "_" has no LineEnd.
std::vector<Token> TokensOf(std::wstring_view text, Language language);

// The tokens of the statement that begins at a place, without its end.
std::vector<Token> StatementAt(const std::vector<Token>& tokens, ULONG line, ULONG column, Language language);

// Equal names; VBScript does not distinguish capitals.
bool SameName(std::wstring_view left, std::wstring_view right, Language language);

}  // namespace wendrill::script_host
