// A registration that is rejected says why: in the thread's error information and in a log file.
#include <olectl.h>

#include "common/text.h"
#include "desktop_fixture.h"
#include "registered_dlls.h"

namespace wendrill::com::testing {
namespace {

constexpr wchar_t kOther[] = L"{11111111-2222-3333-4444-555555555555}";

class RegistrationRefusal : public Registry {
 protected:
  RegistrationRefusal() {
    wchar_t folder[MAX_PATH];
    log_ = std::wstring(folder, GetTempPathW(MAX_PATH, folder)) + L"refusals \u00FC.log";
    DeleteFileW(log_.c_str());
    SetEnvironmentVariableW(L"WENDRILL_REGISTER_LOG", log_.c_str());
  }
  ~RegistrationRefusal() override {
    SetEnvironmentVariableW(L"WENDRILL_REGISTER_LOG", nullptr);
    DeleteFileW(log_.c_str());
  }

  std::string Log() const {
    const HANDLE file = CreateFileW(log_.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
      return "";
    }
    char text[4096];
    DWORD length = 0;
    ReadFile(file, text, sizeof(text), &length, nullptr);
    CloseHandle(file);
    return {text, length};
  }

  const ServerDll dll{CopyOf(L"Wendrill23.dll", L"refused \u00E9")};

 private:
  std::wstring log_;
};

TEST_F(RegistrationRefusal, ANameOfAnotherServerIsNotTaken) {
  SetDefaultValue(HKEY_LOCAL_MACHINE, L"Wendrill23.CPNR\\CLSID", kOther);
  SetDefaultValue(HKEY_LOCAL_MACHINE, std::wstring(L"CLSID\\") + kOther + L"\\InprocServer32", L"C:\\other.dll");
  const auto before = Export();
  EXPECT_EQ(SELFREG_E_CLASS, dll.Register());
  EXPECT_EQ(SELFREG_E_CLASS, dll.Install(L"user")) << "the name is the machine's, and holds for the user too";
  EXPECT_EQ("", Difference(before, Export())) << "nothing was written";
  const ErrorOnThread error = TakeError();
  EXPECT_EQ(dll.Path(), error.source);
  EXPECT_EQ(L"The name Wendrill23.CPNR belongs to another server already: " + std::wstring(kOther) + L", C:\\other.dll",
            error.description);
  RemoveKey(HKEY_LOCAL_MACHINE, std::wstring(L"CLSID\\") + kOther);
}

TEST_F(RegistrationRefusal, EachOneIsALineOfUtf8InTheLog) {
  SetDefaultValue(HKEY_LOCAL_MACHINE, L"Wendrill23.CPNR\\CLSID", kOther);
  const std::string line = ToUtf8(TextOf(std::wstring_view(dll.Path()))) +
                           ": The name Wendrill23.CPNR belongs to another server already: "
                           "{11111111-2222-3333-4444-555555555555} (0x80040201)\r\n";
  dll.Register();
  EXPECT_EQ(line, Log());
  EXPECT_NE(L"", TakeError().description) << "the log takes nothing from the thread";
  dll.Register();
  EXPECT_EQ(line + line, Log());
}

TEST_F(RegistrationRefusal, WhatSucceedsIsNotInTheLog) {
  EXPECT_EQ(S_OK, dll.Register());
  EXPECT_EQ(S_OK, dll.Unregister());
  EXPECT_EQ("", Log());
}

TEST_F(RegistrationRefusal, ALogThatCannotBeWrittenChangesNothing) {
  SetEnvironmentVariableW(L"WENDRILL_REGISTER_LOG", L"C:\\no such folder\\log");
  EXPECT_EQ(E_INVALIDARG, dll.Install(L"everybody"));
  EXPECT_NE(L"", TakeError().description);
}

TEST_F(RegistrationRefusal, UnknownWordsAreNamed) {
  EXPECT_EQ(E_INVALIDARG, dll.Install(L"user, everybody"));
  EXPECT_EQ(L"The word \"everybody\" after /i: is not one of user, machine, surrogate.", TakeError().description);
  EXPECT_EQ(E_INVALIDARG, dll.Uninstall(L"everybody"));
  EXPECT_EQ(L"The word \"everybody\" after /i: is not one of user, machine, surrogate.", TakeError().description);
}

TEST_F(RegistrationRefusal, TheSimulatorsWordIsNotTheLibrarys) {
  EXPECT_EQ(E_INVALIDARG, dll.Install(L"simulate"));
}

TEST_F(RegistrationRefusal, UserAndMachineExcludeEachOther) {
  const auto before = Export();
  EXPECT_EQ(E_INVALIDARG, dll.Install(L"user,machine"));
  EXPECT_EQ(L"The words user and machine after /i: exclude each other.", TakeError().description);
  EXPECT_EQ("", Difference(before, Export()));
}

// A key that exists until the machine stops takes no other keys: the system refuses them with status 1021.
TEST_F(RegistrationRefusal, ASurrogateIsNotForOneUser) {
  const auto before = Export();
  EXPECT_EQ(E_INVALIDARG, dll.Install(L"user,surrogate"));
  EXPECT_EQ(L"A surrogate serves all users: the words user and surrogate after /i: exclude each other.",
            TakeError().description);
  EXPECT_EQ("", Difference(before, Export()));
}

TEST_F(RegistrationRefusal, AKeyThatCannotBeWrittenIsNamedAndTheRestTakenBack) {
  HKEY key = nullptr;
  ASSERT_EQ(ERROR_SUCCESS, RegCreateKeyExW(HKEY_LOCAL_MACHINE, L"Software\\Classes\\Wendrill23.CQueue", 0, nullptr,
                                           REG_OPTION_VOLATILE, KEY_ALL_ACCESS, nullptr, &key, nullptr));
  RegCloseKey(key);
  const auto before = Export();
  EXPECT_EQ(HRESULT_FROM_WIN32(ERROR_CHILD_MUST_BE_VOLATILE), dll.Register());
  EXPECT_EQ("", Difference(before, Export()));
  const std::wstring description = TakeError().description;
  EXPECT_EQ(0U,
            description.find(L"HKEY_LOCAL_MACHINE\\Software\\Classes\\Wendrill23.CQueue\\CLSID cannot be written: "))
      << ToUtf8(TextOf(std::wstring_view(description)));
}

}  // namespace
}  // namespace wendrill::com::testing
