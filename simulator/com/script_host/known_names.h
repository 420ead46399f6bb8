// The names that a script may use: classes, members and functions, for the nearest one to a misspelled name.
#pragma once

#include <oaidl.h>
#include <windows.h>

#include <string>
#include <vector>

#include "script_text.h"

namespace wendrill::script_host {

// The programmatic names of the library's and the simulator's classes and of those that scripts commonly create, as far
// as this run can create them.
std::vector<std::wstring> KnownClasses();

// The members of all objects of the library, of the simulator and of the script host, from their type libraries, and
// those of the objects that scripts commonly use.
std::vector<std::wstring> KnownMembers();

// The members of one object, from its type information; empty when it has none.
std::vector<std::wstring> MembersOf(IDispatch& object);

// The position (from 0) of the parameter of a library's member that takes a parameter bag; -1 for a member without one.
int PlaceOfBag(std::wstring_view member);

// Whether VBScript has a statement, function or constant of this name.
bool IsWordOfVbs(std::wstring_view name);

// The functions of VBScript.
std::vector<std::wstring> FunctionsOfVbs();

}  // namespace wendrill::script_host
