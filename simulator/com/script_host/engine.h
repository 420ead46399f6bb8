// The system's script engines.
#pragma once

#include <activscp.h>
#include <windows.h>
#include <wrl/client.h>

#include "script_text.h"

namespace wendrill::script_host {

// Throws UsageError when the system has no engine for the language.
Microsoft::WRL::ComPtr<IActiveScript> CreateEngine(Language language);

// Sets the engine up and passes it a text: it is parsed, but does not run yet.
HRESULT Parse(IActiveScript& engine, IActiveScriptSite& site, const wchar_t* text);

}  // namespace wendrill::script_host
