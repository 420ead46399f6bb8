// The simulator carries the terminal's names: it registers only when that is asked for, and never answers beside a
// terminal.
#include <olectl.h>

#include <filesystem>
#include <fstream>

#include "common/text.h"
#include "desktop_fixture.h"
#include "registered_dlls.h"

namespace wendrill::com::testing {
namespace {

constexpr wchar_t kOther[] = L"{11111111-2222-3333-4444-555555555555}";

class SimulatorRegistration : public Registry {
 protected:
  const ServerDll dll{L"QuilletSimulator.dll"};
};

TEST_F(SimulatorRegistration, IsRejectedUnlessItIsAskedFor) {
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

// --- No mixture

class Mixture : public Registry {
 protected:
  Mixture() { EXPECT_EQ(S_OK, dll_.Install(L"simulate")); }
  ~Mixture() override { SetEnvironmentVariableW(L"QUILLET_SIMULATOR_MIX", nullptr); }

  static HRESULT Create(const CLSID& id) {
    Reference<IUnknown> object;
    return CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, object.ReceiveVoid());
  }

 private:
  const ServerDll dll_{L"QuilletSimulator.dll"};
};

constexpr HRESULT kCannotCreate = static_cast<HRESULT>(0x800A01AD);  // 429

TEST_F(Mixture, NoSimulatedComponentIsCreatedBesideOnesOfATerminal) {
  SetDefaultValue(HKEY_LOCAL_MACHINE, L"szuPNR.PNR\\CLSID", kOther);
  SetDefaultValue(HKEY_LOCAL_MACHINE, L"Pellorin.TextHelper\\CLSID", kOther);
  for (const CLSID& id :
       {CLSID_HostSessionList, CLSID_HostSession, CLSID_PNR, CLSID_AlarmManager, CLSID_ParamBag, CLSID_TextHelper}) {
    EXPECT_EQ(kCannotCreate, Create(id));
    const ErrorOnThread error = TakeError();
    EXPECT_EQ(L"QuilletSimulator", error.source);
    EXPECT_EQ(
        L"The simulated terminal does not mix with another one. These names belong to another server here: "
        L"szuPNR.PNR, Pellorin.TextHelper.",
        error.description);
  }
}

TEST_F(Mixture, TheControlIsNoComponentOfTheTerminal) {
  SetDefaultValue(HKEY_LOCAL_MACHINE, L"szuPNR.PNR\\CLSID", kOther);
  EXPECT_EQ(S_OK, Create(CLSID_Control));
}

TEST_F(Mixture, EachNameIsLookedAt) {
  for (const wchar_t* name : {L"kzuHostToolKit.HostSessionList", L"kzuHostToolKit.HostSession", L"szuPNR.PNR",
                              L"wzuScriptHelper.AlarmManager", L"Pellorin.ParamBag", L"Pellorin.TextHelper"}) {
    const std::wstring key = std::wstring(name) + L"\\CLSID";
    const std::wstring own = DefaultValue(HKEY_LOCAL_MACHINE, key);
    SetDefaultValue(HKEY_LOCAL_MACHINE, key, kOther);
    EXPECT_EQ(kCannotCreate, Create(CLSID_HostSessionList));
    EXPECT_NE(std::wstring::npos, TakeError().description.find(name));
    SetDefaultValue(HKEY_LOCAL_MACHINE, key, own);
  }
  EXPECT_EQ(S_OK, Create(CLSID_HostSessionList)) << "a refusal is not kept";
}

// A manifest from which the calling thread finds classes before the registry, for as long as this lives.
class OtherManifest {
 public:
  explicit OtherManifest(const std::string& classes) {
    wchar_t folder[MAX_PATH];
    const std::wstring path = std::wstring(folder, GetTempPathW(MAX_PATH, folder)) + L"mixture test.manifest";
    std::ofstream(std::filesystem::path(path))
        << "<?xml version='1.0'?><assembly xmlns='urn:schemas-microsoft-com:asm.v1' manifestVersion='1.0'>"
           "<assemblyIdentity type='win32' name='Mixture' version='1.0.0.0' processorArchitecture='x86'/>"
           "<file name='other.dll'>"
        << classes << "</file></assembly>";
    ACTCTXW wanted{};
    wanted.cbSize = sizeof(wanted);
    wanted.lpSource = path.c_str();
    context_ = CreateActCtxW(&wanted);
    EXPECT_NE(INVALID_HANDLE_VALUE, context_);
    EXPECT_NE(FALSE, ActivateActCtx(context_, &cookie_));
  }
  ~OtherManifest() {
    DeactivateActCtx(0, cookie_);
    ReleaseActCtx(context_);
  }
  OtherManifest(const OtherManifest&) = delete;
  OtherManifest& operator=(const OtherManifest&) = delete;

 private:
  HANDLE context_ = nullptr;
  ULONG_PTR cookie_ = 0;
};

TEST_F(Mixture, AManifestMayBringATerminalsComponent) {
  EXPECT_EQ(S_OK, Create(CLSID_HostSessionList));
  {
    const OtherManifest manifest(
        "<comClass clsid='{11111111-2222-3333-4444-555555555555}' progid='Pellorin.ParamBag'/>");
    EXPECT_EQ(kCannotCreate, Create(CLSID_HostSessionList)) << "a clean answer holds for its own context only";
    EXPECT_NE(std::wstring::npos, TakeError().description.find(L"Pellorin.ParamBag."));
  }
  EXPECT_EQ(S_OK, Create(CLSID_HostSessionList));
}

// A name in a manifest stands for an alias of the class, never for the class itself.
TEST_F(Mixture, AManifestMayDeclareSimulatedComponents) {
  const std::wstring id = TextOfGuid(CLSID_ParamBag);
  const OtherManifest manifest("<comClass clsid='" + ToUtf8(TextOf(std::wstring_view(id))) +
                               "' progid='Pellorin.ParamBag'/>");
  CLSID alias;
  ASSERT_EQ(S_OK, CLSIDFromProgID(L"Pellorin.ParamBag", &alias));
  EXPECT_EQ(S_OK, Create(CLSID_HostSessionList));
}

TEST_F(Mixture, NamesThatNobodyHasAreNotForeign) {
  RemoveKey(HKEY_LOCAL_MACHINE, L"szuPNR.PNR");
  EXPECT_EQ(S_OK, Create(CLSID_HostSessionList));
}

TEST_F(Mixture, MayBeWantedForTests) {
  SetDefaultValue(HKEY_LOCAL_MACHINE, L"szuPNR.PNR\\CLSID", kOther);
  SetEnvironmentVariableW(L"QUILLET_SIMULATOR_MIX", L"1");
  EXPECT_EQ(S_OK, Create(CLSID_HostSessionList));
  SetEnvironmentVariableW(L"QUILLET_SIMULATOR_MIX", L"0");
  EXPECT_EQ(kCannotCreate, Create(CLSID_HostSessionList));
}

}  // namespace
}  // namespace wendrill::com::testing
