// Several copies of the library on one machine: the one that registered last answers, and no copy removes what another
// has registered.
#include <algorithm>

#include "com/server/automation_types.h"
#include "registered_dlls.h"
#include "wendrill23.h"

namespace wendrill::com::testing {
namespace {

constexpr wchar_t kName[] = L"Wendrill23.CQueue";

std::wstring ServerKey() {
  return L"CLSID\\" + TextOfGuid(CLSID_CQueue) + L"\\InprocServer32";
}
std::wstring LibraryKey() {
  return L"TypeLib\\" + TextOfGuid(LIBID_Wendrill23) + L"\\1.0\\0\\win32";
}

std::wstring RegisteredTypeLibrary() {
  BSTR path = nullptr;
  QueryPathOfRegTypeLib(LIBID_Wendrill23, 1, 0, 0, &path);
  const std::wstring text = path == nullptr ? L"" : std::wstring(path, wcslen(path));
  SysFreeString(path);
  return text;
}

std::wstring InCapitals(std::wstring text) {
  CharUpperW(text.data());
  return text;
}

class RegistrationOwnership : public Registry {
 protected:
  const ServerDll a{CopyOf(L"Wendrill23.dll", L"copy A")};
  const ServerDll b{CopyOf(L"Wendrill23.dll", L"copy B")};
};

TEST_F(RegistrationOwnership, TheLastOneAnswersAndNothingIsLeftWhenBothAreUnregistered) {
  const auto before = Export();
  ASSERT_EQ(S_OK, a.Register());
  ASSERT_EQ(a.Path(), FileThatAnswers(kName));
  ASSERT_EQ(S_OK, b.Register());
  EXPECT_EQ(b.Path(), FileThatAnswers(kName));
  EXPECT_EQ(b.Path(), RegisteredTypeLibrary());
  const auto ofB = Export();
  ASSERT_EQ(S_OK, a.Unregister());
  EXPECT_EQ("", Difference(ofB, Export())) << "unregistering A removes nothing of B's";
  EXPECT_EQ(b.Path(), FileThatAnswers(kName));
  ASSERT_EQ(S_OK, b.Unregister());
  EXPECT_EQ(L"", FileThatAnswers(kName));
  EXPECT_EQ("", Difference(before, Export()));
}

TEST_F(RegistrationOwnership, TheSameHoldsForTheUser) {
  const auto before = Export();
  ASSERT_EQ(S_OK, a.Install(L"user"));
  ASSERT_EQ(S_OK, b.Install(L"user"));
  const auto ofB = Export();
  EXPECT_EQ(b.Path(), DefaultValue(HKEY_CURRENT_USER, ServerKey()));
  ASSERT_EQ(S_OK, a.Uninstall(L"user"));
  EXPECT_EQ("", Difference(ofB, Export()));
  ASSERT_EQ(S_OK, b.Uninstall(L"user"));
  EXPECT_EQ("", Difference(before, Export()));
}

// Earlier releases named a threading model, with which two apartments crash.
TEST_F(RegistrationOwnership, AnOlderRegistrationIsReplacedWithAllThatItHeld) {
  ASSERT_EQ(S_OK, b.Register());
  const auto fresh = Export();
  ASSERT_EQ(S_OK, b.Unregister());
  ASSERT_EQ(S_OK, a.Register());
  SetDefaultValue(HKEY_LOCAL_MACHINE, ServerKey(), L"Apartment", L"ThreadingModel");
  SetDefaultValue(HKEY_LOCAL_MACHINE, L"CLSID\\" + TextOfGuid(CLSID_CQueue) + L"\\Old", L"value");
  SetDefaultValue(HKEY_LOCAL_MACHINE, L"Interface\\" + TextOfGuid(__uuidof(_CQueue)) + L"\\Old", L"value");
  ASSERT_EQ(S_OK, b.Register());
  // Removing keys and creating them again may change the order in which they are listed.
  auto replaced = Export();
  auto expected = fresh;
  std::sort(replaced.begin(), replaced.end());
  std::sort(expected.begin(), expected.end());
  EXPECT_EQ("", Difference(expected, replaced));
}

TEST_F(RegistrationOwnership, TheFilesPathIsComparedWithoutCase) {
  const auto before = Export();
  ASSERT_EQ(S_OK, a.Register());
  SetDefaultValue(HKEY_LOCAL_MACHINE, ServerKey(), InCapitals(a.Path()));
  SetDefaultValue(HKEY_LOCAL_MACHINE, LibraryKey(), InCapitals(a.Path()));
  ASSERT_EQ(S_OK, a.Unregister());
  EXPECT_EQ("", Difference(before, Export()));
}

TEST_F(RegistrationOwnership, ShortNamesOfTheFileAreItsOwnToo) {
  wchar_t name[MAX_PATH] = L"";
  GetShortPathNameW(a.Path().c_str(), name, MAX_PATH);
  ASSERT_NE(a.Path(), name) << "this folder has no short name";
  const auto before = Export();
  ASSERT_EQ(S_OK, a.Register());
  SetDefaultValue(HKEY_LOCAL_MACHINE, ServerKey(), name);
  SetDefaultValue(HKEY_LOCAL_MACHINE, LibraryKey(), name);
  ASSERT_EQ(S_OK, a.Unregister());
  EXPECT_EQ("", Difference(before, Export()));
}

TEST_F(RegistrationOwnership, AClassOfAnotherFileStaysWithItsName) {
  ASSERT_EQ(S_OK, a.Register());
  SetDefaultValue(HKEY_LOCAL_MACHINE, ServerKey(), b.Path());
  ASSERT_EQ(S_OK, a.Unregister());
  EXPECT_EQ(b.Path(), DefaultValue(HKEY_LOCAL_MACHINE, ServerKey()));
  EXPECT_EQ(TextOfGuid(CLSID_CQueue), DefaultValue(HKEY_LOCAL_MACHINE, std::wstring(kName) + L"\\CLSID"));
  EXPECT_EQ(L"", DefaultValue(HKEY_LOCAL_MACHINE, L"Wendrill23.CPNR\\CLSID")) << "this one was A's";
}

TEST_F(RegistrationOwnership, ATypeLibraryOfAnotherFileStaysWithTheInterfaces) {
  ASSERT_EQ(S_OK, a.Register());
  SetDefaultValue(HKEY_LOCAL_MACHINE, LibraryKey(), b.Path());
  ASSERT_EQ(S_OK, a.Unregister());
  EXPECT_EQ(b.Path(), DefaultValue(HKEY_LOCAL_MACHINE, LibraryKey()));
  EXPECT_EQ(L"_CQueue", DefaultValue(HKEY_LOCAL_MACHINE, L"Interface\\" + TextOfGuid(__uuidof(_CQueue))));
  EXPECT_EQ(L"", DefaultValue(HKEY_LOCAL_MACHINE, ServerKey())) << "the class was A's";
}

TEST_F(RegistrationOwnership, AnotherVersionOfTheTypeLibraryStays) {
  const std::wstring other = L"TypeLib\\" + TextOfGuid(LIBID_Wendrill23) + L"\\2.0\\0\\win32";
  ASSERT_EQ(S_OK, a.Register());
  SetDefaultValue(HKEY_LOCAL_MACHINE, other, b.Path());
  ASSERT_EQ(S_OK, a.Unregister());
  EXPECT_EQ(b.Path(), DefaultValue(HKEY_LOCAL_MACHINE, other));
  EXPECT_EQ(L"", DefaultValue(HKEY_LOCAL_MACHINE, LibraryKey()));
}

TEST_F(RegistrationOwnership, AFolderMayHaveBlanksAmpersandsAndAnyLetters) {
  const ServerDll odd(CopyOf(L"Wendrill23.dll", L"Z\u00FCrich & M\u00E1laga \u65E5\u672C"));
  const auto before = Export();
  ASSERT_EQ(S_OK, odd.Register());
  EXPECT_EQ(odd.Path(), FileThatAnswers(kName));
  EXPECT_EQ(odd.Path(), RegisteredTypeLibrary());
  ASSERT_EQ(S_OK, odd.Unregister());
  EXPECT_EQ("", Difference(before, Export()));
}

}  // namespace
}  // namespace wendrill::com::testing
