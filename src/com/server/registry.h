// Access to the part of the registry in which classes, ProgIDs, interfaces and type libraries are registered, for the
// machine or for the current user.
#pragma once

#include <windows.h>

#include <string>

namespace wendrill::com {

enum class RegistrationScope { Machine, User };

// On 64-bit Windows, the machine's registered classes and interfaces are in two separate sets of keys, one for 32-bit
// programs and one for 64-bit programs. A view selects one of these sets. On 32-bit Windows there is only one set,
// which both views select.
enum class RegistryView { k32, k64 };

struct RegistryValue {
  std::wstring key;   // path relative to Software\Classes
  std::wstring name;  // empty for the key's default value
  std::wstring text;
};

// The registered classes of one scope in one view. Keys are named by their path relative to Software\Classes. Write and
// Remove raise an Error when they fail: the number of the Error is the system's error code as an HRESULT, and the
// description contains the key and the reason. DefaultValue and RemoveIfEmpty do not report failures.
class RegisteredClasses {
 public:
  explicit RegisteredClasses(RegistrationScope scope, RegistryView view = RegistryView::k32)
      : scope_(scope), view_(view) {}

  // The default value of a key; empty when the key or the value does not exist, cannot be read or is not a string.
  std::wstring DefaultValue(const std::wstring& key) const;

  void Write(const RegistryValue& value) const;

  // Removes a key with all its values and subkeys. A missing key is not a failure.
  void Remove(const std::wstring& key) const;
  void RemoveIfEmpty(const std::wstring& key) const;

  RegistrationScope Scope() const { return scope_; }

 private:
  HKEY Root() const;

  REGSAM With(REGSAM access) const;  // `access` with the flag that selects view_

  RegistrationScope scope_;
  RegistryView view_;
};

}  // namespace wendrill::com
