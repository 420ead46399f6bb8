// Completes the error of a script, so that the report shows the cause of the error:
// - the number and the text that Windows' engine gives for the error, where Wine's engine gives neither;
// - the misspelled name, and the known name that is nearest to it;
// - the reason of the failure, where the engine drops the reason.
//
// Wine's engines report several different errors as "call failed", and do not name a misspelled member or class. The
// explanation takes the names from the statement that failed, and the values from the script's global variables. When
// the explanation does not find the misspelled name, the report contains no name.
#pragma once

#include <oaidl.h>
#include <windows.h>

#include <string>
#include <vector>

#include "script_text.h"

namespace wendrill::script_host {

struct ScriptError {
  HRESULT status = E_FAIL;
  std::wstring source;                // empty when the engine gives no source
  std::wstring description;           // empty when the engine gives no description
  std::vector<std::wstring> reasons;  // additional lines of the report
};

// The script and the position of the error in the script. `globals` gives access to the script's global variables. When
// `globals` is null, the explanation uses no values of variables.
struct ScriptPlace {
  const std::wstring& text;
  Language language;
  ULONG line;    // counted from 1
  ULONG column;  // counted from 1
  IDispatch* globals;
};

// Replaces the status, the source and the description of `error`, or adds to its description and its reasons, when the
// explanation finds the cause of the error. Otherwise leaves `error` unchanged.
void Explain(ScriptError& error, const ScriptPlace& place);

}  // namespace wendrill::script_host
