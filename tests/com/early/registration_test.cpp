// Self-registration: what it writes and that nothing stays.
#include <algorithm>

#include "com/server/automation_types.h"
#include "platform.h"
#include "registered_dlls.h"
#include "wendrill23.h"

namespace wendrill::com::testing {
namespace {

class Registration : public Registry {
 protected:
  const ServerDll dll{L"Wendrill23.dll"};
};

TEST_F(Registration, ForTheMachineWritesEveryClassAndUnregisteringLeavesNoTrace) {
  const auto before = Export();
  ASSERT_EQ(S_OK, dll.Register());
  const std::wstring clsid = TextOfGuid(CLSID_CQuillet);
  EXPECT_EQ(clsid, DefaultValue(HKEY_LOCAL_MACHINE, L"Wendrill23.CQuillet\\CLSID"));
  EXPECT_EQ(dll.Path(), DefaultValue(HKEY_LOCAL_MACHINE, L"CLSID\\" + clsid + L"\\InprocServer32"));
  EXPECT_EQ(L"", DefaultValue(HKEY_LOCAL_MACHINE, L"CLSID\\" + clsid + L"\\InprocServer32", L"ThreadingModel"))
      << "COM creates the objects in the main apartment only where the value is missing";
  EXPECT_EQ(TextOfGuid(LIBID_Wendrill23), DefaultValue(HKEY_LOCAL_MACHINE, L"CLSID\\" + clsid + L"\\TypeLib"));
  EXPECT_EQ(dll.Path(),
            DefaultValue(HKEY_LOCAL_MACHINE, L"TypeLib\\" + TextOfGuid(LIBID_Wendrill23) + L"\\1.0\\0\\win32"));
  EXPECT_EQ(L"_CQueue", DefaultValue(HKEY_LOCAL_MACHINE, L"Interface\\" + TextOfGuid(__uuidof(_CQueue))));
  for (const wchar_t* name : {L"CPNR", L"CQueue", L"CBatch", L"CEncodeUtils", L"IGet", L"IGetPNR"}) {
    EXPECT_NE(L"", DefaultValue(HKEY_LOCAL_MACHINE, std::wstring(L"Wendrill23.") + name + L"\\CLSID"));
  }
  EXPECT_NE(before, Export());
  ASSERT_EQ(S_OK, dll.Unregister());
  EXPECT_EQ("", Difference(before, Export()));
  EXPECT_EQ(S_OK, dll.Unregister()) << "what is not there is no failure";
}

TEST_F(Registration, ForTheUserWritesBelowTheUserAndLeavesNoTrace) {
  const auto before = Export();
  ASSERT_EQ(S_OK, dll.Install(L"user"));
  EXPECT_EQ(TextOfGuid(CLSID_CPNR), DefaultValue(HKEY_CURRENT_USER, L"Wendrill23.CPNR\\CLSID"));
  EXPECT_EQ(L"", DefaultValue(HKEY_LOCAL_MACHINE, L"Wendrill23.CPNR\\CLSID")) << "the machine's part is not touched";
  ASSERT_EQ(S_OK, dll.Uninstall(L"user"));
  EXPECT_EQ("", Difference(before, Export()));
}

TEST_F(Registration, UnregisteringForTheUserKeepsTheMachines) {
  ASSERT_EQ(S_OK, dll.Register());
  const auto machine = Export();
  ASSERT_EQ(S_OK, dll.Install(L"user"));
  ASSERT_EQ(S_OK, dll.Uninstall(L"user"));
  EXPECT_EQ("", Difference(machine, Export()));
}

TEST_F(Registration, TwiceIsOnce) {
  ASSERT_EQ(S_OK, dll.Register());
  const auto once = Export();
  ASSERT_EQ(S_OK, dll.Register());
  EXPECT_EQ("", Difference(once, Export()));
}

TEST_F(Registration, WordsAreSeparatedByCommasAndCaseDoesNotCount) {
  for (const wchar_t* words : {L"user", L"USER", L" User ", L"user,", L",user,user"}) {
    ASSERT_EQ(S_OK, dll.Install(words));
    EXPECT_NE(L"", DefaultValue(HKEY_CURRENT_USER, L"Wendrill23.CPNR\\CLSID"));
    EXPECT_EQ(L"", DefaultValue(HKEY_LOCAL_MACHINE, L"Wendrill23.CPNR\\CLSID"));
    ASSERT_EQ(S_OK, dll.Uninstall(words));
  }
}

TEST_F(Registration, WithoutAWordItIsTheMachines) {
  for (const wchar_t* words : {L"", L" ", L"machine", L"Machine", static_cast<const wchar_t*>(nullptr)}) {
    ASSERT_EQ(S_OK, dll.Install(words));
    EXPECT_NE(L"", DefaultValue(HKEY_LOCAL_MACHINE, L"Wendrill23.CPNR\\CLSID"));
    EXPECT_EQ(L"", DefaultValue(HKEY_CURRENT_USER, L"Wendrill23.CPNR\\CLSID"));
    ASSERT_EQ(S_OK, dll.Uninstall(words));
  }
}

// Where there are no 64-bit programs both views are the same keys. With them: script/test-more hosts64.
TEST_F(Registration, WithASurrogateClassesNameItAndUnregisteringLeavesNoTrace) {
  const auto before = Export();
  ASSERT_EQ(S_OK, dll.Install(L"surrogate"));
  const std::wstring classKey = L"CLSID\\" + TextOfGuid(CLSID_CQuillet);
  const std::wstring surrogate = DefaultValue(HKEY_LOCAL_MACHINE, classKey, L"AppID");
  ASSERT_EQ(38U, surrogate.size());
  EXPECT_EQ(surrogate, DefaultValue(HKEY_LOCAL_MACHINE, L"CLSID\\" + TextOfGuid(CLSID_IGetPNR), L"AppID"));
  EXPECT_EQ(L"Wendrill23", DefaultValue(HKEY_LOCAL_MACHINE, L"AppID\\" + surrogate));
  DWORD type = REG_NONE;
  wchar_t text[8] = L"kept";
  DWORD bytes = sizeof(text);
  EXPECT_EQ(ERROR_SUCCESS, RegGetValueW(HKEY_LOCAL_MACHINE, (L"Software\\Classes\\AppID\\" + surrogate).c_str(),
                                        L"DllSurrogate", RRF_RT_REG_SZ, &type, text, &bytes));
  EXPECT_STREQ(L"", text) << "the system's own surrogate";
  EXPECT_EQ(dll.Path(), FileThatAnswers(L"Wendrill23.CQueue")) << "32-bit programs still load the DLL";
  ASSERT_EQ(S_OK, dll.Unregister());
  EXPECT_EQ("", Difference(before, Export()));
}

// Removing keys and creating them again may change the order in which they are listed.
std::vector<std::wstring> Sorted(std::vector<std::wstring> lines) {
  std::sort(lines.begin(), lines.end());
  return lines;
}

TEST_F(Registration, WithoutTheWordASurrogateIsTakenBack) {
  ASSERT_EQ(S_OK, dll.Register());
  const auto plain = Export();
  ASSERT_EQ(S_OK, dll.Install(L"machine,surrogate"));
  EXPECT_NE(plain, Export());
  ASSERT_EQ(S_OK, dll.Register());
  EXPECT_EQ("", Difference(Sorted(plain), Sorted(Export())));
}

}  // namespace
}  // namespace wendrill::com::testing
