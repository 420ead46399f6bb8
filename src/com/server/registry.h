// The part of the registry that holds classes, names, interfaces and type libraries: the machine's or a user's.
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

// Keys are named below the classes' root. What fails raises an Error with the system's status, whose description names
// the key and the reason.
class RegisteredClasses {
 public:
  explicit RegisteredClasses(RegistrationScope scope) : scope_(scope) {}

  // Empty when there is none.
  std::wstring DefaultValue(const std::wstring& key) const;

  void Write(const RegistryValue& value) const;

  // With everything below it. A key that is not there is no failure.
  void Remove(const std::wstring& key) const;
  void RemoveIfEmpty(const std::wstring& key) const;

 private:
  HKEY Root() const;

  RegistrationScope scope_;
};

}  // namespace wendrill::com
