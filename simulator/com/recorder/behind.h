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
// the recorder's own class, and when the environment variable names a file that is not a DLL with a manifest.
//
// Never creates an object of the recorder's own classes, which the program's activation context declares:
// - Without the variable, only the registry is searched, and not the program's activation context.
// - With the variable, the activation context of the DLL is searched before the program's activation context.
// - A class of the recorder that is found nevertheless is rejected.
HRESULT CreateBehind(const wchar_t* programmaticId, const IID& wanted, void** object);

}  // namespace wendrill::recorder
