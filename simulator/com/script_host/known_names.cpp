#include "known_names.h"

#include <wrl/client.h>

#include <algorithm>
#include <filesystem>

#include "late_bound.h"
#include "program_path.h"
#include "wscript.h"

namespace wendrill::script_host {

namespace {

using Microsoft::WRL::ComPtr;

constexpr const wchar_t* kLibraries[] = {L"Wendrill23.dll", L"QuilletSimulator.dll"};
constexpr std::wstring_view kLibraryPrefix = L"Wendrill23.";
constexpr std::wstring_view kBagParameter = L"objParams";

constexpr const wchar_t* kCommonClasses[] = {
    L"Scripting.Dictionary", L"Scripting.FileSystemObject", L"WScript.Shell",  L"WScript.Network",
    L"VBScript.RegExp",      L"Shell.Application",          L"ADODB.Stream",   L"ADODB.Connection",
    L"ADODB.Recordset",      L"MSXML2.DOMDocument",         L"MSXML2.XMLHTTP", L"Excel.Application",
    L"Word.Application",     L"Outlook.Application",
};

// Members of Scripting.Dictionary, Scripting.FileSystemObject, TextStream, WScript.Arguments and Err, and of JScript's
// built-in objects.
constexpr const wchar_t* kCommonMembers[] = {
    L"Add",         L"CompareMode",  L"Remove",    L"Items",       L"Keys",           L"Exists",
    L"Item",        L"Key",          L"Count",     L"RemoveAll",   L"OpenTextFile",   L"CreateTextFile",
    L"FileExists",  L"FolderExists", L"GetFile",   L"GetFolder",   L"DeleteFile",     L"CopyFile",
    L"MoveFile",    L"CreateFolder", L"BuildPath", L"GetFileName", L"GetBaseName",    L"ReadLine",
    L"ReadAll",     L"Read",         L"Write",     L"WriteLine",   L"Close",          L"AtEndOfStream",
    L"AtEndOfLine", L"Skip",         L"SkipLine",  L"Line",        L"Column",         L"Number",
    L"Source",      L"Description",  L"Clear",     L"Raise",       L"Named",          L"Unnamed",
    L"Length",      L"length",       L"push",      L"pop",         L"shift",          L"unshift",
    L"slice",       L"splice",       L"concat",    L"join",        L"reverse",        L"sort",
    L"indexOf",     L"lastIndexOf",  L"charAt",    L"charCodeAt",  L"substring",      L"substr",
    L"split",       L"replace",      L"match",     L"search",      L"test",           L"exec",
    L"toUpperCase", L"toLowerCase",  L"toString",  L"valueOf",     L"hasOwnProperty", L"getTime",
    L"getFullYear", L"getMonth",     L"getDate",   L"getDay",      L"getHours",       L"getMinutes",
    L"getSeconds",  L"floor",        L"ceil",      L"round",       L"random",         L"abs",
    L"min",         L"max",          L"pow",       L"sqrt",        L"fromCharCode",   L"apply",
    L"call",        L"message",      L"number",    L"description", L"name",           L"prototype",
    L"constructor", L"atEnd",        L"item",      L"moveFirst",   L"moveNext",       L"toFixed",
};

constexpr const wchar_t* kWordsOfVbs[] = {
    L"And",    L"As",        L"ByRef",    L"ByVal", L"Call",   L"Case",     L"Class",    L"Const",   L"Default",
    L"Dim",    L"Do",        L"Each",     L"Else",  L"ElseIf", L"Empty",    L"End",      L"Eqv",     L"Erase",
    L"Error",  L"Exit",      L"Explicit", L"False", L"For",    L"Function", L"Get",      L"GoTo",    L"If",
    L"Imp",    L"In",        L"Is",       L"Let",   L"Loop",   L"Me",       L"Mod",      L"New",     L"Next",
    L"Not",    L"Nothing",   L"Null",     L"On",    L"Option", L"Or",       L"Preserve", L"Private", L"Property",
    L"Public", L"Randomize", L"ReDim",    L"Rem",   L"Resume", L"Select",   L"Set",      L"Step",    L"Stop",
    L"Sub",    L"Then",      L"To",       L"True",  L"Until",  L"Wend",     L"While",    L"With",    L"Xor",
    L"Err",    L"WScript",   L"WSH",
};

constexpr const wchar_t* kFunctionsOfVbs[] = {
    L"Abs",
    L"Array",
    L"Asc",
    L"AscB",
    L"AscW",
    L"Atn",
    L"CBool",
    L"CByte",
    L"CCur",
    L"CDate",
    L"CDbl",
    L"Chr",
    L"ChrB",
    L"ChrW",
    L"CInt",
    L"CLng",
    L"Cos",
    L"CreateObject",
    L"CSng",
    L"CStr",
    L"Date",
    L"DateAdd",
    L"DateDiff",
    L"DatePart",
    L"DateSerial",
    L"DateValue",
    L"Day",
    L"Escape",
    L"Eval",
    L"Execute",
    L"ExecuteGlobal",
    L"Exp",
    L"Filter",
    L"Fix",
    L"FormatCurrency",
    L"FormatDateTime",
    L"FormatNumber",
    L"FormatPercent",
    L"GetLocale",
    L"GetObject",
    L"GetRef",
    L"Hex",
    L"Hour",
    L"InputBox",
    L"InStr",
    L"InStrB",
    L"InStrRev",
    L"Int",
    L"IsArray",
    L"IsDate",
    L"IsEmpty",
    L"IsNull",
    L"IsNumeric",
    L"IsObject",
    L"Join",
    L"LBound",
    L"LCase",
    L"Left",
    L"LeftB",
    L"Len",
    L"LenB",
    L"LoadPicture",
    L"Log",
    L"LTrim",
    L"Mid",
    L"MidB",
    L"Minute",
    L"Month",
    L"MonthName",
    L"MsgBox",
    L"Now",
    L"Oct",
    L"Replace",
    L"RGB",
    L"Right",
    L"RightB",
    L"Rnd",
    L"Round",
    L"RTrim",
    L"ScriptEngine",
    L"ScriptEngineBuildVersion",
    L"ScriptEngineMajorVersion",
    L"ScriptEngineMinorVersion",
    L"Second",
    L"SetLocale",
    L"Sgn",
    L"Sin",
    L"Space",
    L"Split",
    L"Sqr",
    L"StrComp",
    L"String",
    L"StrReverse",
    L"Tan",
    L"Time",
    L"Timer",
    L"TimeSerial",
    L"TimeValue",
    L"Trim",
    L"TypeName",
    L"UBound",
    L"UCase",
    L"Unescape",
    L"VarType",
    L"Weekday",
    L"WeekdayName",
    L"Year",
};

// Returns the type library inside a DLL in this program's folder; null when the DLL or its type library is missing.
ComPtr<ITypeLib> TypeLibraryOf(const wchar_t* dll) {
  const std::filesystem::path path = ProgramPath().parent_path() / dll;
  ComPtr<ITypeLib> library;
  LoadTypeLibEx(path.c_str(), REGKIND_NONE, &library);
  return library;
}

template <typename Visit>
void ForEachType(const wchar_t* dll, Visit visit) {
  const ComPtr<ITypeLib> library = TypeLibraryOf(dll);
  for (UINT index = 0; library && index < library->GetTypeInfoCount(); ++index) {
    ComPtr<ITypeInfo> type;
    TYPEATTR* attributes = nullptr;
    if (FAILED(library->GetTypeInfo(index, &type)) || FAILED(type->GetTypeAttr(&attributes))) {
      continue;
    }
    visit(*type.Get(), *attributes);
    type->ReleaseTypeAttr(attributes);
  }
}

// Calls `visit(names)` for each member of the type, except restricted members, which scripts cannot call. `names`
// contains the name of the member, then the names of its parameters.
template <typename Visit>
void ForEachMember(ITypeInfo& type, const TYPEATTR& attributes, Visit visit) {
  for (UINT index = 0; index < attributes.cFuncs; ++index) {
    FUNCDESC* function = nullptr;
    if (FAILED(type.GetFuncDesc(index, &function))) {
      continue;
    }
    BSTR found[16] = {};
    UINT count = 0;
    if ((function->wFuncFlags & FUNCFLAG_FRESTRICTED) == 0) {
      type.GetNames(function->memid, found, static_cast<UINT>(std::size(found)), &count);
    }
    std::vector<std::wstring> names;
    for (UINT name = 0; name < count; ++name) {
      names.push_back(Taken(found[name]));
    }
    type.ReleaseFuncDesc(function);
    if (!names.empty()) {
      visit(names);
    }
  }
}

bool HasMembers(const TYPEATTR& attributes) {
  return attributes.typekind == TKIND_DISPATCH || attributes.typekind == TKIND_INTERFACE;
}

bool Contains(const auto& names, std::wstring_view name) {
  return std::any_of(std::begin(names), std::end(names),
                     [name](const wchar_t* candidate) { return SameName(candidate, name, Language::VBScript); });
}

}  // namespace

std::vector<std::wstring> KnownClasses() {
  std::vector<std::wstring> classes;
  for (const wchar_t* dll : kLibraries) {
    ForEachType(dll, [&](ITypeInfo& type, const TYPEATTR& attributes) {
      BSTR name = nullptr;
      BSTR help = nullptr;
      if (attributes.typekind != TKIND_COCLASS ||
          FAILED(type.GetDocumentation(MEMBERID_NIL, &name, &help, nullptr, nullptr))) {
        return;
      }
      // A class of the library has the ProgID kLibraryPrefix + its name. In the simulator's type library, the help
      // string of each class is the ProgID of the class, because most of these ProgIDs are those of the terminal's
      // classes, which the simulator replaces.
      const std::wstring ownName = Taken(name);
      const std::wstring helpText = Taken(help);
      classes.push_back(dll == kLibraries[0] ? std::wstring(kLibraryPrefix) + ownName : helpText);
    });
  }
  classes.insert(classes.end(), std::begin(kCommonClasses), std::end(kCommonClasses));
  std::erase_if(classes, [](const std::wstring& name) { return !IsClass(name); });
  return classes;
}

std::vector<std::wstring> KnownMembers() {
  std::vector<std::wstring> members;
  for (const wchar_t* dll : kLibraries) {
    ForEachType(dll, [&](ITypeInfo& type, const TYPEATTR& attributes) {
      if (HasMembers(attributes)) {
        ForEachMember(type, attributes, [&](const auto& names) { members.push_back(names.front()); });
      }
    });
  }
  for (const std::wstring_view name : WScript::MemberNames()) {
    members.emplace_back(name);
  }
  members.insert(members.end(), std::begin(kCommonMembers), std::end(kCommonMembers));
  return members;
}

std::vector<std::wstring> MembersOf(IDispatch& object) {
  std::vector<std::wstring> members;
  ComPtr<ITypeInfo> type;
  TYPEATTR* attributes = nullptr;
  if (SUCCEEDED(object.GetTypeInfo(0, LOCALE_USER_DEFAULT, &type)) && type &&
      SUCCEEDED(type->GetTypeAttr(&attributes))) {
    ForEachMember(*type.Get(), *attributes, [&](const auto& names) { members.push_back(names.front()); });
    type->ReleaseTypeAttr(attributes);
  }
  return members;
}

int PlaceOfBag(std::wstring_view member) {
  int place = -1;
  ForEachType(kLibraries[0], [&](ITypeInfo& type, const TYPEATTR& attributes) {
    if (!HasMembers(attributes)) {
      return;
    }
    ForEachMember(type, attributes, [&](const auto& names) {
      const auto bag = std::find(names.begin(), names.end(), kBagParameter);
      if (bag != names.end() && SameName(names.front(), member, Language::VBScript)) {
        place = static_cast<int>(bag - names.begin()) - 1;
      }
    });
  });
  return place;
}

bool IsWordOfVbs(std::wstring_view name) {
  return Contains(kWordsOfVbs, name) || Contains(kFunctionsOfVbs, name) ||
         (name.size() > 2 && SameName(name.substr(0, 2), L"vb", Language::VBScript));
}

std::vector<std::wstring> FunctionsOfVbs() {
  return {std::begin(kFunctionsOfVbs), std::end(kFunctionsOfVbs)};
}

}  // namespace wendrill::script_host
