// Creates objects of the terminal's own classes, which have the same ProgIDs as the recorder's classes.
#pragma once

#include <ole2.h>
#include <windows.h>

namespace wendrill::recorder {

// The environment variable with the path of the DLL whose manifest declares the terminal's classes. Without the
// variable, the terminal's classes are looked up in the registry.
inline constexpr char16_t kBehindVariable[] = u"QUILLET_RECORD_BEHIND";

// Creates the object that the ProgID would create without the recorder. Returns the HRESULT of that creation, and
// leaves the error information of that creation. Raises 429 (cannot create object) when the ProgID has no class except
// the recorder's own class, and when QUILLET_RECORD_BEHIND names a file that is not a DLL with a manifest.
//
// The program's activation context declares the recorder's classes under the ProgIDs of the terminal. CreateBehind
// never creates one of them:
// - Without QUILLET_RECORD_BEHIND, only the registry is searched, and not the program's activation context.
// - With QUILLET_RECORD_BEHIND, the activation context of that DLL is searched before the program's activation context.
// - If the class found is nevertheless a class of the recorder, CreateBehind raises 429.
HRESULT CreateBehind(const wchar_t* programmaticId, const IID& wanted, void** object);

}  // namespace wendrill::recorder
