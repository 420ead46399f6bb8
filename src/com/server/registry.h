// The part of the registry that contains classes, programmatic names, interfaces and type libraries: the machine's or a
// user's.
#pragma once

#include <windows.h>

#include <string>

namespace wendrill::com {

enum class RegistrationScope { Machine, User };

struct RegistryValue {
  std::wstring key;   // below the classes' root
  std::wstring name;  // empty for the key's default value
  std::wstring text;
};

// Keys are named relative to the classes' root. Every method raises an Error on failure, with the system's status and a
// description that names the key and the reason.
class RegisteredClasses {
 public:
  explicit RegisteredClasses(RegistrationScope scope) : scope_(scope) {}

  // The default value of a key; empty when there is no such key or value.
  std::wstring DefaultValue(const std::wstring& key) const;

  void Write(const RegistryValue& value) const;

  // Removes a key with everything below it. A missing key is not a failure.
  void Remove(const std::wstring& key) const;
  void RemoveIfEmpty(const std::wstring& key) const;

 private:
  HKEY Root() const;

  RegistrationScope scope_;
};

}  // namespace wendrill::com
