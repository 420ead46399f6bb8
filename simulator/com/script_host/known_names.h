// The names of the classes, members and functions that a script may use. Error messages suggest the known name that is
// nearest to a misspelled name.
#pragma once

#include <oaidl.h>
#include <windows.h>

#include <string>
#include <vector>

#include "script_text.h"

namespace wendrill::script_host {

// Returns the ProgIDs of the library's classes, of the simulator's classes, and of classes that scripts commonly
// create. A ProgID that does not resolve to a class in this run is left out.
std::vector<std::wstring> KnownClasses();

// Returns the names of the members of WScript, of the objects that scripts commonly use, and of all interfaces in the
// type libraries of the library and of the simulator. A name may occur more than once. The names of a DLL that is not
// beside this program are missing.
std::vector<std::wstring> KnownMembers();

// Returns the names of the members of one object, from its type information; empty when the object has no type
// information.
std::vector<std::wstring> MembersOf(IDispatch& object);

// Returns the position, counted from 0, of the parameter that takes a parameter bag, for a member of the library; -1
// when the library has no member of this name with such a parameter. Case-insensitive.
int PlaceOfBag(std::wstring_view member);

// Whether the name has a meaning in VBScript or in this host: a keyword, a function, Err, WScript or WSH. Also true for
// every name of at least three characters that begins with "vb", as VBScript's constants do. Case-insensitive.
bool IsWordOfVbs(std::wstring_view name);

// Returns the names of VBScript's functions.
std::vector<std::wstring> FunctionsOfVbs();

}  // namespace wendrill::script_host
