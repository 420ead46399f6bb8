// Self-registration, for the machine or for one user. A registration is owned by the file that it names: a class by the
// file in its InprocServer32, the type library and all its interfaces by the file in the library's 0\win32. The owner
// may be another copy of this DLL. Keys that this file does not own are never removed.
#pragma once

#include "com/server/registry.h"

namespace wendrill::com {

// Registers the classes of kServer and the type library, and replaces an older registration from another file. After a
// failure, everything written so far is removed. Raises an Error, and writes nothing, when a programmatic name is
// registered for another class already; the description names both.
void RegisterServer(RegistrationScope scope);

// Removes the keys that registering writes and that this file still owns. A missing key is not a failure. When a key
// cannot be removed, the other keys are removed all the same, and the first such failure is raised at the end.
void UnregisterServer(RegistrationScope scope);

// With the word surrogate, 64-bit programs reach the classes too: in both views of the registry the classes name an
// AppID whose DllSurrogate is empty, so that Windows starts a 32-bit process of its own for them, and the 64-bit view
// has the interfaces as well. Unregistering, and registering without the word, clear both views.
//
// DllInstall: the text after regsvr32's /i:, which is a list of words separated by commas (kInstallWords). Raises
// E_INVALIDARG for unknown and contradictory words. Unregistering does not require neededWords.
void InstallServer(bool install, const wchar_t* words);

}  // namespace wendrill::com
