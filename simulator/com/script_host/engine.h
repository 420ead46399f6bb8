// Creates the script engines that are registered on this system.
#pragma once

#include <activscp.h>
#include <windows.h>
#include <wrl/client.h>

#include "script_text.h"

namespace wendrill::script_host {

// Creates the engine of a language. Throws UsageError when the system has none.
Microsoft::WRL::ComPtr<IActiveScript> CreateEngine(Language language);

// Initialises the engine with its site and the names WScript and WSH, and lets the engine parse the text. The script
// does not run yet.
HRESULT Parse(IActiveScript& engine, IActiveScriptSite& site, const wchar_t* text);

}  // namespace wendrill::script_host
