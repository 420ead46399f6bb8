// Creates the script engines that are registered on this system.
#pragma once

#include <activscp.h>
#include <windows.h>
#include <wrl/client.h>

#include "script_text.h"

namespace wendrill::script_host {

// Creates the engine of a language. Throws UsageError when the system has no engine for the language, and when the
// engine cannot be created.
Microsoft::WRL::ComPtr<IActiveScript> CreateEngine(Language language);

// Initialises the engine with its site and the names WScript and WSH, and lets the engine parse the text. The script
// does not run yet. Returns S_OK or the status of the first step that failed. The engine reports a syntax error to
// `site`.
HRESULT Parse(IActiveScript& engine, IActiveScriptSite& site, const wchar_t* text);

}  // namespace wendrill::script_host
