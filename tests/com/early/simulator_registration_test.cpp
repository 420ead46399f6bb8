// The simulator carries the terminal's names: it registers only when that is asked for.
#include <olectl.h>

#include "desktop_fixture.h"
#include "registered_dlls.h"

namespace wendrill::com::testing {
namespace {

constexpr wchar_t kOther[] = L"{11111111-2222-3333-4444-555555555555}";

class SimulatorRegistration : public Registry {
 protected:
  const ServerDll dll{L"QuilletSimulator.dll"};
};

TEST_F(SimulatorRegistration, IsRefusedUnlessItIsAskedFor) {
  const auto before = Export();
  for (const HRESULT status : {dll.Register(), dll.Install(L""), dll.Install(L"user")}) {
    EXPECT_EQ(SELFREG_E_CLASS, status);
  }
  EXPECT_EQ("", Difference(before, Export()));
  EXPECT_NE(std::wstring::npos, TakeError().description.find(L"regsvr32 /n /i:simulate QuilletSimulator.dll"));
}

TEST_F(SimulatorRegistration, WithTheWordItRegistersAndLeavesNoTrace) {
  const auto before = Export();
  ASSERT_EQ(S_OK, dll.Install(L"simulate"));
  EXPECT_EQ(TextOfGuid(CLSID_Control), DefaultValue(HKEY_LOCAL_MACHINE, L"QuilletSimulator.Control\\CLSID"));
  EXPECT_EQ(dll.Path(), FileThatAnswers(L"szuPNR.PNR"));
  ASSERT_EQ(S_OK, dll.Uninstall(L"simulate"));
  EXPECT_EQ("", Difference(before, Export()));
}

TEST_F(SimulatorRegistration, UnregisteringNeedsNoWord) {
  const auto before = Export();
  ASSERT_EQ(S_OK, dll.Install(L"simulate"));
  ASSERT_EQ(S_OK, dll.Unregister());
  EXPECT_EQ("", Difference(before, Export()));
}

TEST_F(SimulatorRegistration, ForTheUserAlone) {
  const auto before = Export();
  ASSERT_EQ(S_OK, dll.Install(L"user,simulate"));
  EXPECT_EQ(TextOfGuid(CLSID_PNR), DefaultValue(HKEY_CURRENT_USER, L"szuPNR.PNR\\CLSID"));
  EXPECT_EQ(L"", DefaultValue(HKEY_LOCAL_MACHINE, L"szuPNR.PNR\\CLSID"));
  ASSERT_EQ(S_OK, dll.Uninstall(L"simulate,user"));
  EXPECT_EQ("", Difference(before, Export()));
}

TEST_F(SimulatorRegistration, ATerminalsNameIsNotTaken) {
  SetDefaultValue(HKEY_LOCAL_MACHINE, L"szuPNR.PNR\\CLSID", kOther);
  const auto before = Export();
  EXPECT_EQ(SELFREG_E_CLASS, dll.Install(L"simulate"));
  const std::wstring description = TakeError().description;
  EXPECT_NE(std::wstring::npos, description.find(L"szuPNR.PNR"));
  EXPECT_NE(std::wstring::npos, description.find(kOther));
  EXPECT_EQ("", Difference(before, Export())) << "nothing was written";
  EXPECT_EQ(S_OK, dll.Unregister());
  EXPECT_EQ("", Difference(before, Export())) << "another server's name stays";
}

}  // namespace
}  // namespace wendrill::com::testing
