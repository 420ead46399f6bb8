// Finds the line of a syntax error.
//
// Wine's engines report some syntax errors at a wrong place. VBScript reports errors that it finds after parsing at
// line 1, column 1. JScript reports the beginning of the construct that is incomplete.
//
// The search lets the engine parse changed texts and compares the errors. For JScript it cuts the text after a line and
// appends various endings: when every ending gives the reported error, the text that is left contains the mistake. The
// mistake is in the last line of the shortest such text. For VBScript it looks for a call statement with parentheses
// around several arguments. Without such a statement it empties one line at a time: when the other lines have no error,
// the mistake is in the emptied line.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "script_text.h"

namespace wendrill::script_host {

struct SyntaxPlace {
  ULONG line;    // counted from 1
  ULONG column;  // counted from 1; 0 when not known
};

// Returns the place of the error that the engine reported at `reported`; nullopt when the search does not find it.
std::optional<SyntaxPlace> FindSyntaxError(const std::wstring& text, Language language, SyntaxPlace reported);

}  // namespace wendrill::script_host
