#include "com/server/registration.h"

#include <olectl.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "com/server/automation_types.h"
#include "com/server/boundary.h"
#include "com/server/module.h"
#include "common/error.h"

namespace wendrill::com {
namespace {

std::wstring TextOfGuid(const GUID& id) {
  wchar_t text[40];
  StringFromGUID2(id, text, static_cast<int>(std::size(text)));
  return text;
}

[[noreturn]] void Refuse(HRESULT status, std::u16string reason) {
  throw Error(status, std::u16string(TextOf(ModulePath())), std::move(reason));
}

// --- What is written

std::wstring KeyOf(const ServerClass& registered) {
  return L"CLSID\\" + TextOfGuid(registered.id);
}

// All registry values of one class, in the order in which they are written. The first value, the path in
// InprocServer32, makes this file the owner of the class. It is written first because UnregisterServer, which undoes a
// failed registration, removes only what this file owns. The class has no ThreadingModel, so COM creates every object
// in the main single-threaded apartment of the process. Therefore only one thread uses the module-wide state, which has
// no lock.
std::vector<RegistryValue> ValuesOf(const ServerClass& registered) {
  const std::wstring classKey = KeyOf(registered);
  const std::wstring name = registered.programmaticId;
  return {
      {classKey + L"\\InprocServer32", L"", ModulePath()},
      {classKey, L"", registered.description},
      {classKey + L"\\ProgID", L"", name},
      {classKey + L"\\Programmable", L"", L""},
      {classKey + L"\\TypeLib", L"", TextOfGuid(kServer.typeLibrary)},
      {classKey + L"\\Version", L"", L"1.0"},
      {name + L"\\CLSID", L"", TextOfGuid(registered.id)},
      {name, L"", registered.description},
  };
}

// The CLSIDs of the system's marshallers: kTypeLibraryMarshaller marshals a dual interface by its type library,
// kDispatchMarshaller marshals an interface that has only IDispatch.
constexpr wchar_t kTypeLibraryMarshaller[] = L"{00020424-0000-0000-C000-000000000046}";
constexpr wchar_t kDispatchMarshaller[] = L"{00020420-0000-0000-C000-000000000046}";

struct PublishedInterface {
  IID id;
  std::wstring name;
  bool dual;
};

std::wstring NameIn(ITypeLib* library, INT index) {
  OwnedString name;
  Check(library->GetDocumentation(index, name.Receive(), nullptr, nullptr, nullptr));
  return std::wstring(WideOf(name.Text()));
}

Reference<ITypeLib> OwnTypeLibrary() {
  Reference<ITypeLib> library;
  Check(LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, library.Receive()));
  return library;
}

std::vector<PublishedInterface> InterfacesOf(ITypeLib* library) {
  std::vector<PublishedInterface> interfaces;
  for (UINT index = 0; index < library->GetTypeInfoCount(); ++index) {
    Reference<ITypeInfo> type;
    TYPEATTR* attributes = nullptr;
    Check(library->GetTypeInfo(index, type.Receive()));
    Check(type->GetTypeAttr(&attributes));
    if (attributes->typekind == TKIND_DISPATCH || attributes->typekind == TKIND_INTERFACE) {
      interfaces.push_back(
          {attributes->guid, NameIn(library, static_cast<INT>(index)), (attributes->wTypeFlags & TYPEFLAG_FDUAL) != 0});
    }
    type->ReleaseTypeAttr(attributes);
  }
  return interfaces;
}

std::wstring KeyOf(const PublishedInterface& published) {
  return L"Interface\\" + TextOfGuid(published.id);
}
std::wstring TypeLibraryKey() {
  return L"TypeLib\\" + TextOfGuid(kServer.typeLibrary);
}
std::wstring VersionKey() {
  return TypeLibraryKey() + L"\\1.0";
}

std::vector<RegistryValue> ValuesOfInterfaces(ITypeLib* library) {
  std::vector<RegistryValue> values;
  for (const PublishedInterface& published : InterfacesOf(library)) {
    const std::wstring key = KeyOf(published);
    values.push_back({key, L"", published.name});
    values.push_back({key + L"\\ProxyStubClsid32", L"", published.dual ? kTypeLibraryMarshaller : kDispatchMarshaller});
    values.push_back({key + L"\\TypeLib", L"", TextOfGuid(kServer.typeLibrary)});
    values.push_back({key + L"\\TypeLib", L"Version", L"1.0"});
  }
  return values;
}

// All registry values of the type library and its interfaces, in the order in which they are written. The first value,
// the path in 0\win32, makes this file the owner of the type library.
//
// The values are written one by one instead of by the system's functions: RegisterTypeLib registers for the machine
// only, and RegisterTypeLibForUser is missing on some systems and registers for the machine on others.
std::vector<RegistryValue> ValuesOfTypeLibrary() {
  const std::wstring path = ModulePath();
  const Reference<ITypeLib> library = OwnTypeLibrary();
  const std::wstring version = VersionKey();
  std::vector<RegistryValue> values{
      {version + L"\\0\\win32", L"", path},
      {version, L"", NameIn(library.Get(), -1)},
      {version + L"\\FLAGS", L"", L"0"},
      {version + L"\\HELPDIR", L"", path.substr(0, path.find_last_of(L'\\'))},
  };
  for (RegistryValue& value : ValuesOfInterfaces(library.Get())) {
    values.push_back(std::move(value));
  }
  return values;
}

// --- Surrogate: makes the classes available to 64-bit programs, in a process that Windows starts. The AppID with an
// empty DllSurrogate requests that process. Classes and interfaces are registered in both views of the registry, the
// 32-bit view and the 64-bit view; the path of the DLL only in the 32-bit view.

std::wstring SurrogateKey() {
  return L"AppID\\" + std::wstring(kServer.surrogate);
}

std::vector<RegistryValue> ValuesOfSurrogate() {
  std::vector<RegistryValue> values{{SurrogateKey(), L"", L"Wendrill23"}, {SurrogateKey(), L"DllSurrogate", L""}};
  for (const ServerClass& registered : kServer.classes) {
    values.push_back({KeyOf(registered), L"", registered.description});
    values.push_back({KeyOf(registered), L"AppID", kServer.surrogate});
  }
  return values;
}

void WriteAll(const RegisteredClasses& classes, const std::vector<RegistryValue>& values) {
  for (const RegistryValue& value : values) {
    classes.Write(value);
  }
}

// --- Who owns a registration

bool SameText(const std::wstring& left, const std::wstring& right) {
  return CompareStringOrdinal(left.c_str(), -1, right.c_str(), -1, TRUE) == CSTR_EQUAL;
}

// The long form of a path; the path unchanged when the file does not exist. Paths are compared in their long form,
// because a file may be registered under its short name.
std::wstring LongPath(const std::wstring& path) {
  std::wstring whole(GetLongPathNameW(path.c_str(), nullptr, 0), L'\0');
  const DWORD length = GetLongPathNameW(path.c_str(), whole.data(), static_cast<DWORD>(whole.size()));
  whole.resize(length < whole.size() ? length : 0);
  return whole.empty() ? path : whole;  // `whole` is empty when the file does not exist
}

bool IsThisFile(const std::wstring& path) {
  return !path.empty() && SameText(LongPath(path), LongPath(ModulePath()));
}

bool IsOurs(const RegisteredClasses& classes, const ServerClass& registered) {
  return IsThisFile(classes.DefaultValue(KeyOf(registered) + L"\\InprocServer32"));
}

bool TypeLibraryIsOurs(const RegisteredClasses& classes) {
  return IsThisFile(classes.DefaultValue(VersionKey() + L"\\0\\win32"));
}

// The CLSID, as a string, of the class for which the ProgID `name` is registered; empty for an unregistered ProgID.
std::wstring OwnerOf(const RegisteredClasses& classes, const std::wstring& name) {
  return classes.DefaultValue(name + L"\\CLSID");
}

// Raises an Error when a ProgID of this server is registered for another class, for the machine or for the user.
// Registering must not take a ProgID from another server: scripts that use the other server would create a class of
// this server instead.
void RefuseTakenNames() {
  for (const ServerClass& registered : kServer.classes) {
    for (const RegistrationScope scope : {RegistrationScope::Machine, RegistrationScope::User}) {
      const RegisteredClasses classes(scope);
      const std::wstring owner = OwnerOf(classes, registered.programmaticId);
      if (owner.empty() || SameText(owner, TextOfGuid(registered.id))) {
        continue;
      }
      const std::wstring file = classes.DefaultValue(L"CLSID\\" + owner + L"\\InprocServer32");
      Refuse(SELFREG_E_CLASS, u"The name " + std::u16string(TextOf(registered.programmaticId)) +
                                  u" belongs to another server already: " + std::u16string(TextOf(owner)) +
                                  (file.empty() ? u"" : u", " + std::u16string(TextOf(file))));
    }
  }
}

// --- Removing

// The keys that contain the classes, interfaces and type libraries of all servers. For a user, these keys exist only
// after a first registration, so unregistering for the user removes those that are empty. For the machine, these keys
// always exist and are never removed.
constexpr const wchar_t* kContainers[] = {L"CLSID", L"Interface", L"TypeLib"};

// The registered classes of the machine in the 64-bit view, in which a surrogate may be registered. nullopt when the
// scope is a user, and for a server without a surrogate.
std::optional<RegisteredClasses> ClassesOf64Bit(RegistrationScope scope) {
  if (scope == RegistrationScope::User || kServer.surrogate == nullptr) {
    return std::nullopt;
  }
  return RegisteredClasses(scope, RegistryView::k64);
}

void RemoveClass(const RegisteredClasses& classes, const ServerClass& registered) {
  if (SameText(OwnerOf(classes, registered.programmaticId), TextOfGuid(registered.id))) {
    classes.Remove(registered.programmaticId);
  }
  if (const auto of64Bit = ClassesOf64Bit(classes.Scope())) {
    of64Bit->Remove(KeyOf(registered));
  }
  // This key is removed last, because its subkey InprocServer32 names the owner of the class. Without the owner,
  // UnregisterServer would skip the class when it is called again after a failure.
  classes.Remove(KeyOf(registered));
}

void RemoveTypeLibrary(const RegisteredClasses& classes) {
  const auto of64Bit = ClassesOf64Bit(classes.Scope());
  for (const PublishedInterface& published : InterfacesOf(OwnTypeLibrary().Get())) {
    classes.Remove(KeyOf(published));
    if (of64Bit) {
      of64Bit->Remove(KeyOf(published));
    }
  }
  if (of64Bit) {
    classes.Remove(SurrogateKey());
    of64Bit->Remove(SurrogateKey());
  }
  // This key is removed after all other keys with values, because its subkey 0\win32 names the owner of the type
  // library and of the interfaces. Without the owner, UnregisterServer would skip them when it is called again after a
  // failure.
  classes.Remove(VersionKey());
  classes.RemoveIfEmpty(TypeLibraryKey());
}

// Removes an older registration, even a registration of another file, because it may contain values that registering
// this file would not overwrite.
void RemoveOlder(const RegisteredClasses& classes) {
  for (const ServerClass& registered : kServer.classes) {
    RemoveClass(classes, registered);
  }
  RemoveTypeLibrary(classes);
}

void TakeBack(RegistrationScope scope) noexcept {
  try {
    UnregisterServer(scope);
  } catch (...) {
    // A failure of this clean-up is ignored: the caller reports the failure of the registration instead.
  }
}

// --- The words after regsvr32's /i:

struct InstallWord {
  const wchar_t* text;
  unsigned word;
};

constexpr InstallWord kInstallWords[] = {
    {L"user", kForUser},
    {L"machine", kForMachine},
    {L"simulate", kSimulate},
    {L"surrogate", kSurrogate},
};

std::wstring Trimmed(const std::wstring& text) {
  const std::size_t first = text.find_first_not_of(L' ');
  return first == std::wstring::npos ? L"" : text.substr(first, text.find_last_not_of(L' ') - first + 1);
}

unsigned WordOf(const std::wstring& text) {
  std::u16string known;
  for (const InstallWord& candidate : kInstallWords) {
    if ((candidate.word & (kForUser | kForMachine | kServer.ownWords)) == 0) {
      continue;
    }
    if (SameText(text, candidate.text)) {
      return candidate.word;
    }
    known += (known.empty() ? u"" : u", ") + std::u16string(TextOf(candidate.text));
  }
  Refuse(E_INVALIDARG, u"The word \"" + std::u16string(TextOf(text)) + u"\" after /i: is not one of " + known + u".");
}

unsigned WordsIn(const wchar_t* text) {
  unsigned words = 0;
  const std::wstring all = text == nullptr ? L"" : text;
  for (std::size_t begin = 0; begin <= all.size();) {
    const std::size_t comma = std::min(all.find(L',', begin), all.size());
    const std::wstring word = Trimmed(all.substr(begin, comma - begin));
    words |= word.empty() ? 0U : WordOf(word);
    begin = comma + 1;
  }
  if ((words & kForUser) != 0 && (words & kForMachine) != 0) {
    Refuse(E_INVALIDARG, u"The words user and machine after /i: exclude each other.");
  }
  if ((words & kForUser) != 0 && (words & kSurrogate) != 0) {
    Refuse(E_INVALIDARG, u"A surrogate serves all users: the words user and surrogate after /i: exclude each other.");
  }
  return words;
}

void RegisterAfterConsent(RegistrationScope scope, unsigned words) {
  if ((kServer.neededWords & ~words) != 0) {
    Refuse(SELFREG_E_CLASS, kServer.whyNeeded);
  }
  RefuseTakenNames();
  const RegisteredClasses classes(scope);
  try {
    RemoveOlder(classes);
    for (const ServerClass& registered : kServer.classes) {
      WriteAll(classes, ValuesOf(registered));
    }
    WriteAll(classes, ValuesOfTypeLibrary());
    if ((words & kSurrogate) != 0) {
      const RegisteredClasses of64Bit(scope, RegistryView::k64);
      WriteAll(classes, ValuesOfSurrogate());
      WriteAll(of64Bit, ValuesOfSurrogate());
      WriteAll(of64Bit, ValuesOfInterfaces(OwnTypeLibrary().Get()));
    }
  } catch (...) {
    TakeBack(scope);
    throw;
  }
}

}  // namespace

void RegisterServer(RegistrationScope scope) {
  RegisterAfterConsent(scope, 0);
}

void UnregisterServer(RegistrationScope scope) {
  const RegisteredClasses classes(scope);
  std::optional<Error> failure;
  const auto attempt = [&failure](auto&& removal) {
    try {
      removal();
    } catch (const Error& error) {
      if (!failure) {
        failure = error;
      }
    }
  };
  for (const ServerClass& registered : kServer.classes) {
    if (IsOurs(classes, registered)) {
      attempt([&] { RemoveClass(classes, registered); });
    }
  }
  if (TypeLibraryIsOurs(classes)) {
    attempt([&] { RemoveTypeLibrary(classes); });
  }
  if (scope == RegistrationScope::User) {
    for (const wchar_t* container : kContainers) {
      classes.RemoveIfEmpty(container);
    }
  }
  if (failure) {
    throw *failure;
  }
}

void InstallServer(bool install, const wchar_t* text) {
  const unsigned words = WordsIn(text);
  const RegistrationScope scope = (words & kForUser) != 0 ? RegistrationScope::User : RegistrationScope::Machine;
  if (install) {
    RegisterAfterConsent(scope, words);
  } else {
    UnregisterServer(scope);
  }
}

}  // namespace wendrill::com
