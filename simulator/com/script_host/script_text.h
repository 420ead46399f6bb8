// Splits the text of a script into tokens, as far as error messages need them. This is not a parser and reports no
// errors: a character that belongs to no other kind of token is a Symbol.
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
  std::wstring_view text;  // of a String: without its quotes; of a regular expression: without its slashes
  ULONG line;              // counted from 1
  ULONG column;            // counted from 1

  bool Is(wchar_t symbol) const { return kind == Kind::Symbol && text.size() == 1 && text[0] == symbol; }
  bool IsName(std::wstring_view name, Language language) const;
};

// Returns the tokens of a script in order, without comments. Each line break outside of comments is a token of the kind
// LineEnd. Exception: in VBScript, a line that ends with "_" has no LineEnd, because its statement continues on the
// next line. The tokens refer to the characters of `text`.
std::vector<Token> TokensOf(std::wstring_view text, Language language);

// Returns the tokens of one statement, without LineEnd tokens. The statement begins with the first token at or after
// `line` and `column` (both counted from 1). The statement ends before the first of these tokens:
// - in VBScript a LineEnd or ":";
// - in JScript a LineEnd or ";" outside of brackets;
// - in both languages a closing bracket without an opening bracket in the statement.
std::vector<Token> StatementAt(const std::vector<Token>& tokens, ULONG line, ULONG column, Language language);

// Whether two names are equal in the language: VBScript ignores case, JScript does not.
bool SameName(std::wstring_view left, std::wstring_view right, Language language);

}  // namespace wendrill::script_host
