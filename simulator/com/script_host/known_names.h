// The names of the classes, members and functions that a script may use. Error messages suggest the one that is nearest
// to a misspelled name.
#pragma once

#include <oaidl.h>
#include <windows.h>

#include <string>
#include <vector>

#include "script_text.h"

namespace wendrill::script_host {

// Returns the programmatic names of the library's classes, of the simulator's classes, and of classes that scripts
// commonly create. A name that does not resolve to a class in this run is left out.
std::vector<std::wstring> KnownClasses();

// Returns the names of the members of all interfaces of the library and of the simulator, from their type libraries, of
// WScript, and of the objects that scripts commonly use. A name may occur more than once.
std::vector<std::wstring> KnownMembers();

// Returns the names of the members of one object, from its type information; empty when the object has no type
// information.
std::vector<std::wstring> MembersOf(IDispatch& object);

// Returns the position, counted from 0, of the parameter that takes a parameter bag, for a member of the library; -1
// when no member of this name has such a parameter.
int PlaceOfBag(std::wstring_view member);

// Whether VBScript, or this host, gives the name a meaning: a keyword, a function, Err, WScript or WSH. True also for
// every name that begins with "vb", as VBScript's constants do. Case-insensitive.
bool IsWordOfVbs(std::wstring_view name);

// Returns the names of VBScript's functions.
std::vector<std::wstring> FunctionsOfVbs();

}  // namespace wendrill::script_host
