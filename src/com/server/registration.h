// Self-registration, for the machine or for one user. What is registered belongs to the file that it names: a class to
// its InprocServer32, the type library and all interfaces to the library's 0\win32. Another copy of this DLL elsewhere
// may be the owner, and what is not this file's is never removed.
#pragma once

#include "com/server/registry.h"

namespace wendrill::com {

// Writes the classes of kServer and the type library, in the place of an older registration from another file. What was
// written before a failure is taken back. A programmatic name that belongs to another class already is an Error that
// says which, and nothing is written.
void RegisterServer(RegistrationScope scope);

// Removes what registering this file writes and is still this file's. Keys that are not there are no failure. A key
// that cannot be removed does not keep the others; the first such failure is raised at the end.
void UnregisterServer(RegistrationScope scope);

// DllInstall: the text after regsvr32's /i:, which is a list of words separated by commas (kInstallWords). Unknown and
// contradictory words are an Error with E_INVALIDARG. Unregistering needs no consent.
void InstallServer(bool install, const wchar_t* words);

}  // namespace wendrill::com
