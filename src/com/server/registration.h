// Self-registration of this DLL, for the machine or for one user.
//
// Each registration has an owner: the file whose path the registration contains. A class is owned by the file in its
// InprocServer32. The type library and all its interfaces are owned by the file in the key 0\win32 of the type library.
// The owner may be another copy of this DLL. Unregistering removes only the registrations that the file of this DLL
// owns. Registering replaces registrations that another file owns.
#pragma once

#include "com/server/registry.h"

namespace wendrill::com {

// Registers the classes of kServer and the type library, and replaces an older registration, even of another file.
// After a failure, removes everything that it has written so far; the older registration is not restored.
//
// Raises an Error and writes nothing in two cases. First, a ProgID is already registered for another class; the
// description contains the ProgID and the CLSID of that class. Second, kServer.neededWords requires install words,
// which only InstallServer can receive.
void RegisterServer(RegistrationScope scope);

// Removes the keys that registering writes, if the file of this DLL still owns them. A missing key is not a failure.
// When a key cannot be removed, the function continues with the remaining classes and the type library, and raises the
// first failure at the end.
void UnregisterServer(RegistrationScope scope);

// Implements DllInstall: registers when `install` is true, otherwise unregisters. `words` is the text after /i: on the
// command line of regsvr32, a list of words separated by commas (kInstallWords). With the word user, the scope is the
// current user, otherwise the machine. Raises E_INVALIDARG for words that this DLL does not accept and for words that
// exclude each other: user and machine, user and surrogate. Registering raises SELFREG_E_CLASS when a word in
// kServer.neededWords is missing; unregistering needs no words.
//
// The word surrogate makes the classes available to 64-bit programs too:
// - In both views of the registry, the classes name an AppID whose DllSurrogate is empty. So Windows runs the classes
//   in a 32-bit process that it starts.
// - The interfaces are registered in the 64-bit view as well.
// Two operations remove the AppID from both views, and the classes and interfaces from the 64-bit view: unregistering
// for the machine, and registering for the machine without the word surrogate.
void InstallServer(bool install, const wchar_t* words);

}  // namespace wendrill::com
