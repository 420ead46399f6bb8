// DLLs as regsvr32 meets them, copies of them elsewhere, and the registry that they write to.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

namespace wendrill::com::testing {

class ServerDll {
 public:
  explicit ServerDll(const std::wstring& path);  // a bare name: the DLL beside the test program
  ~ServerDll();
  ServerDll(const ServerDll&) = delete;
  ServerDll& operator=(const ServerDll&) = delete;

  HRESULT Register() const;
  HRESULT Unregister() const;
  HRESULT Install(const wchar_t* words) const;
  HRESULT Uninstall(const wchar_t* words) const;
  std::wstring Path() const;

 private:
  HMODULE library_;
};

// A copy of a DLL in a folder of its own, whose path is returned.
std::wstring CopyOf(const wchar_t* dll, const std::wstring& folder);

std::wstring TextOfGuid(const GUID& id);

// Values and keys below Software\Classes.
std::wstring DefaultValue(HKEY root, const std::wstring& key, const wchar_t* name = nullptr);
void SetDefaultValue(HKEY root, const std::wstring& key, const std::wstring& text, const wchar_t* name = nullptr);
void RemoveKey(HKEY root, const std::wstring& key);

// All of Software\Classes, of the machine and of the user, one line per key and per value.
std::vector<std::wstring> Export();

// The lines that only one of two exports has, or that have changed their place; empty when there are none.
std::string Difference(const std::vector<std::wstring>& before, const std::vector<std::wstring>& after);

// Nothing of either DLL is registered when a test begins, and what it leaves behind is removed.
class Registry : public ::testing::Test {
 protected:
  Registry();
  ~Registry() override;

  // The file that serves a class which the registry finds by its name; empty when no object can be created.
  static std::wstring FileThatAnswers(const wchar_t* programmaticName);
};

}  // namespace wendrill::com::testing
