// Creates objects of the terminal's own classes, which have the same ProgIDs as the recorder's classes.
#pragma once

#include <ole2.h>
#include <windows.h>

namespace wendrill::recorder {

// The environment variable with the path of the DLL whose manifest declares the terminal's classes. Without the
// variable, the terminal's classes are those in the registry.
inline constexpr char16_t kBehindVariable[] = u"QUILLET_RECORD_BEHIND";

// Creates the object that the ProgID would create without the recorder. Returns the status of that creation, and leaves
// the error information of that creation. Raises 429 when the ProgID has no class except the recorder's own, and when
// the environment variable names a file that is not a DLL with a manifest.
//
// The search never finds the recorder's own classes: only the program's activation context declares them. The registry
// does not contain them, and the activation context of the DLL replaces that of the program.
HRESULT CreateBehind(const wchar_t* programmaticId, const IID& wanted, void** object);

}  // namespace wendrill::recorder
