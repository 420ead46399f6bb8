// The right place of a syntax error.
//
// Wine's engines report some syntax errors far from the mistake: VBScript reports what it finds after parsing in line
// 1, JScript the beginning of the construct that could not be finished. The engine itself tells the right line when it
// is given changed texts: the mistake is in the first line after which nothing that could follow changes the report.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "script_text.h"

namespace wendrill::script_host {

struct SyntaxPlace {
  ULONG line;    // counted from 1
  ULONG column;  // counted from 1; 0: not known
};

// The place for the error that the engine reported at `reported`; no value when it cannot be found.
std::optional<SyntaxPlace> FindSyntaxError(const std::wstring& text, Language language, SyntaxPlace reported);

}  // namespace wendrill::script_host
