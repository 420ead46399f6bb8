// Finds the line of a syntax error.
//
// Wine's engines report some syntax errors at a wrong place. The VBScript engine reports line 1, column 1 for an
// error that it finds only after parsing. The JScript engine reports the beginning of an incomplete construct, even if
// the mistake is farther down.
//
// The search lets the engine parse changed texts, and compares the errors of these texts with the reported error.
//
// For JScript, the search cuts the text after a line and appends various endings. When the engine gives the reported
// error with every ending, the text before the cut contains the mistake. The mistake is in the last line of the
// shortest text for which this is true.
//
// For VBScript, an error at any other place than line 1, column 1 is taken to be at the reported place. For an error at
// line 1, column 1, the search first looks for a call statement with parentheses around several arguments. When the
// script has no such statement, the search empties one of the first 400 lines at a time. When the text without this
// line has no error, the mistake is in this line.
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

// Returns the actual place of a syntax error that the engine reported at the place `reported`. Returns nullopt when the
// search finds no place, for example when something is missing at the end of a JScript text.
std::optional<SyntaxPlace> FindSyntaxError(const std::wstring& text, Language language, SyntaxPlace reported);

}  // namespace wendrill::script_host
