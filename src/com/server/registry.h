// The part of the registry that contains classes, programmatic names, interfaces and type libraries: the machine's or a
// user's.
#pragma once

#include <windows.h>

#include <string>

namespace wendrill::com {

enum class RegistrationScope { Machine, User };

// 64-bit Windows keeps the machine's classes and interfaces of 32-bit and of 64-bit programs apart. Elsewhere both
// views are the same keys.
enum class RegistryView { k32, k64 };

struct RegistryValue {
  std::wstring key;   // below the classes' root
  std::wstring name;  // empty for the key's default value
  std::wstring text;
};

// Keys are named relative to the classes' root. Every method raises an Error on failure, with the system's status and a
// description that names the key and the reason.
class RegisteredClasses {
 public:
  explicit RegisteredClasses(RegistrationScope scope, RegistryView view = RegistryView::k32)
      : scope_(scope), view_(view) {}

  // The default value of a key; empty when there is no such key or value.
  std::wstring DefaultValue(const std::wstring& key) const;

  void Write(const RegistryValue& value) const;

  // Removes a key with everything below it. A missing key is not a failure.
  void Remove(const std::wstring& key) const;
  void RemoveIfEmpty(const std::wstring& key) const;

  RegistrationScope Scope() const { return scope_; }

 private:
  HKEY Root() const;

  REGSAM With(REGSAM access) const;  // for opening a key in the view

  RegistrationScope scope_;
  RegistryView view_;
};

}  // namespace wendrill::com
