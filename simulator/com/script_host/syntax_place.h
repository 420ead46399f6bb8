// Finds the line of a syntax error.
//
// Wine's engines report some syntax errors at a wrong place. The VBScript engine reports line 1, column 1 for an error
// that it finds only after parsing. The JScript engine reports the beginning of an incomplete construct, even if the
// mistake is farther down. To find the right place, FindSyntaxError lets the engine parse changed scripts.
//
// JScript: the search takes the first n lines of the script, appends various continuations, and lets the engine parse
// each result. When every continuation gives the reported error, the mistake is in the first n lines. The search finds
// the smallest such n: the mistake is in line n.
//
// VBScript: a reported place other than line 1, column 1 is taken to be right. For line 1, column 1:
// - First the search looks for a call statement with parentheses around several arguments. The first such statement is
//   the mistake.
// - If no statement has such parentheses, each of the first 400 lines is emptied in turn. The mistake is in the first
//   line without which the script has no error.
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
