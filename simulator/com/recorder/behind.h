// Where the recorder finds the terminal's own components: the classes that have its names behind it.
#pragma once

#include <ole2.h>
#include <windows.h>

namespace wendrill::recorder {

// The variable that names the DLL whose manifest has the classes; without it they are those of the registry.
inline constexpr char16_t kBehindVariable[] = u"QUILLET_RECORD_BEHIND";

// Creates the object that the name would give without the recorder; the status and the error information are those of
// its class. Raises 429 for a name that nothing has behind the recorder and for a variable that names no DLL with a
// manifest.
//
// The recorder never finds itself: it is in the program's activation context alone, which a registry does not know and
// the DLL's own context replaces.
HRESULT CreateBehind(const wchar_t* programmaticId, const IID& wanted, void** object);

}  // namespace wendrill::recorder
