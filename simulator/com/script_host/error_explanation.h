// Makes an error of a script lead to its cause: the platform's number and text where the engine has none, the
// misspelled name and the nearest right one, and the reason that the engine leaves out.
//
// Wine's engines report several errors as "call failed", and no engine names a misspelled member or class. The names
// are found in the statement in which the error happened; what the script's global variables hold tells the rest.
// Nothing is guessed: a name that cannot be found is left out.
#pragma once

#include <oaidl.h>
#include <windows.h>

#include <string>
#include <vector>

#include "script_text.h"

namespace wendrill::script_host {

struct ScriptError {
  HRESULT status = E_FAIL;
  std::wstring source;                // empty when the engine has none
  std::wstring description;           // empty likewise
  std::vector<std::wstring> reasons;  // further lines
};

// What is known about the script in which an error happened. `globals` may be null.
struct ScriptPlace {
  const std::wstring& text;
  Language language;
  ULONG line;    // counted from 1
  ULONG column;  // counted from 1
  IDispatch* globals;
};

void Explain(ScriptError& error, const ScriptPlace& place);

}  // namespace wendrill::script_host
