#include "com/server/registration.h"

#include <olectl.h>

#include <cwchar>
#include <string>
#include <vector>

#include "com/server/automation_types.h"
#include "com/server/boundary.h"
#include "com/server/module.h"
#include "common/error.h"

namespace wendrill::com {
namespace {

// Classes live under the same path for the machine and for a user.
constexpr wchar_t kClasses[] = L"Software\\Classes\\";

HKEY RootOf(RegistrationScope scope) {
  return scope == RegistrationScope::User ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
}

std::wstring TextOfGuid(const GUID& id) {
  wchar_t text[40];
  StringFromGUID2(id, text, static_cast<int>(std::size(text)));
  return text;
}

struct RegistryValue {
  std::wstring key;   // below the classes' root
  std::wstring name;  // empty for the key's default value
  std::wstring text;
};

// Everything that registering one class writes. There is no ThreadingModel: COM then creates every object in the
// process's main single-threaded apartment, the only one that the state, which has no lock, can live in.
std::vector<RegistryValue> ValuesOf(const ServerClass& registered) {
  const std::wstring classKey = L"CLSID\\" + TextOfGuid(registered.id);
  const std::wstring name = registered.programmaticId;
  return {
      {classKey, L"", registered.description},
      {classKey + L"\\InprocServer32", L"", ModulePath()},
      {classKey + L"\\ProgID", L"", name},
      {classKey + L"\\Programmable", L"", L""},
      {classKey + L"\\TypeLib", L"", TextOfGuid(kServer.typeLibrary)},
      {classKey + L"\\Version", L"", L"1.0"},
      {name, L"", registered.description},
      {name + L"\\CLSID", L"", TextOfGuid(registered.id)},
  };
}

HRESULT Write(HKEY root, const RegistryValue& value) {
  HKEY key = nullptr;
  const std::wstring path = kClasses + value.key;
  LSTATUS status = RegCreateKeyExW(root, path.c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr, &key, nullptr);
  if (status == ERROR_SUCCESS) {
    const auto bytes = static_cast<DWORD>((value.text.size() + 1) * sizeof(wchar_t));
    status = RegSetValueExW(key, value.name.empty() ? nullptr : value.name.c_str(), 0, REG_SZ,
                            reinterpret_cast<const BYTE*>(value.text.c_str()), bytes);
    RegCloseKey(key);
  }
  return HRESULT_FROM_WIN32(static_cast<DWORD>(status));
}

HRESULT Remove(HKEY root, const std::wstring& key) {
  const LSTATUS status = RegDeleteTreeW(root, (kClasses + key).c_str());
  return status == ERROR_FILE_NOT_FOUND ? S_OK : HRESULT_FROM_WIN32(static_cast<DWORD>(status));
}

// The class that a programmatic name stands for now, in its text form; empty when the name is free.
std::wstring OwnerOf(HKEY root, const std::wstring& name) {
  wchar_t text[40] = L"";
  DWORD bytes = sizeof(text);
  const std::wstring key = kClasses + name + L"\\CLSID";
  const LSTATUS status = RegGetValueW(root, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, text, &bytes);
  return status == ERROR_SUCCESS ? text : L"";
}

// The keys that hold everybody's classes, interfaces and type libraries. The machine always has them; a user has them
// from the first registration on, and an empty one is a trace of ours.
constexpr const wchar_t* kContainers[] = {L"CLSID", L"Interface", L"TypeLib"};

void RemoveEmptyContainers(HKEY root) {
  for (const wchar_t* container : kContainers) {
    const std::wstring path = std::wstring(kClasses) + container;
    HKEY key = nullptr;
    if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) {
      continue;
    }
    DWORD keys = 1;
    DWORD values = 1;
    RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr, nullptr, nullptr,
                     nullptr);
    RegCloseKey(key);
    if (keys == 0 && values == 0) {
      RegDeleteKeyW(root, path.c_str());
    }
  }
}

// Registering must not take a name away from another server: its scripts would meet ours instead.
void RefuseTakenNames() {
  for (const ServerClass& registered : kServer.classes) {
    for (const HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
      const std::wstring owner = OwnerOf(root, registered.programmaticId);
      if (!owner.empty() && _wcsicmp(owner.c_str(), TextOfGuid(registered.id).c_str()) != 0) {
        throw Error(SELFREG_E_CLASS, std::u16string(TextOf(ModulePath())),
                    u"The name " + std::u16string(TextOf(registered.programmaticId)) +
                        u" belongs to another server already: " + std::u16string(TextOf(owner)));
      }
    }
  }
}

// The marshallers that the system has for automation interfaces: by type library, and for late-bound ones.
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

// Everything that registering the type library writes. The system's own function would do for the machine, but its form
// for a user is missing from some systems and writes for the machine on others.
std::vector<RegistryValue> ValuesOfTypeLibrary() {
  const std::wstring path = ModulePath();
  const Reference<ITypeLib> library = OwnTypeLibrary();
  const std::wstring version = TypeLibraryKey() + L"\\1.0";
  std::vector<RegistryValue> values{
      {version, L"", NameIn(library.Get(), -1)},
      {version + L"\\0\\win32", L"", path},
      {version + L"\\FLAGS", L"", L"0"},
      {version + L"\\HELPDIR", L"", path.substr(0, path.find_last_of(L'\\'))},
  };
  for (const PublishedInterface& published : InterfacesOf(library.Get())) {
    const std::wstring key = KeyOf(published);
    values.push_back({key, L"", published.name});
    values.push_back({key + L"\\ProxyStubClsid32", L"", published.dual ? kTypeLibraryMarshaller : kDispatchMarshaller});
    values.push_back({key + L"\\TypeLib", L"", TextOfGuid(kServer.typeLibrary)});
    values.push_back({key + L"\\TypeLib", L"Version", L"1.0"});
  }
  return values;
}

HRESULT WriteAll(HKEY root, const std::vector<RegistryValue>& values) {
  for (const RegistryValue& value : values) {
    const HRESULT status = Write(root, value);
    if (FAILED(status)) {
      return status;
    }
  }
  return S_OK;
}

HRESULT WriteClasses(HKEY root) {
  for (const ServerClass& registered : kServer.classes) {
    const HRESULT status = WriteAll(root, ValuesOf(registered));
    if (FAILED(status)) {
      return status;
    }
  }
  return S_OK;
}

}  // namespace

HRESULT RegisterServer(RegistrationScope scope) {
  RefuseTakenNames();
  HRESULT status = WriteClasses(RootOf(scope));
  if (SUCCEEDED(status)) {
    status = WriteAll(RootOf(scope), ValuesOfTypeLibrary());
  }
  if (FAILED(status)) {
    UnregisterServer(scope);
  }
  return status;
}

HRESULT UnregisterServer(RegistrationScope scope) {
  const HKEY root = RootOf(scope);
  HRESULT status = S_OK;
  const auto remove = [&](const std::wstring& key) {
    const HRESULT removed = Remove(root, key);
    status = FAILED(status) ? status : removed;
  };
  for (const ServerClass& registered : kServer.classes) {
    remove(L"CLSID\\" + TextOfGuid(registered.id));
    if (OwnerOf(root, registered.programmaticId) == TextOfGuid(registered.id)) {
      remove(registered.programmaticId);
    }
  }
  for (const PublishedInterface& published : InterfacesOf(OwnTypeLibrary().Get())) {
    remove(KeyOf(published));
  }
  remove(TypeLibraryKey());
  if (scope == RegistrationScope::User) {
    RemoveEmptyContainers(root);
  }
  return status;
}

}  // namespace wendrill::com
