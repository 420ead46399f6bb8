// Self-registration, for the machine or for one user.
#pragma once

#include <windows.h>

namespace wendrill::com {

enum class RegistrationScope { Machine, User };

// Writes the classes of kServer and the type library. What was written before a failure is taken back. A programmatic
// name that belongs to another server already is an Error that says which, and nothing is written.
HRESULT RegisterServer(RegistrationScope scope);

// Removes every key that registering writes, except names that another server has taken since. Keys that are not there
// are no failure.
HRESULT UnregisterServer(RegistrationScope scope);

}  // namespace wendrill::com
