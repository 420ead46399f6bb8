// What makes registration-free use work on Windows, where Wine is more lenient: manifests in the right resources, and
// no name in two of them.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <regex>
#include <set>
#include <vector>

#include "manifests.h"

namespace wendrill::com::testing {
namespace {

constexpr const wchar_t* kAssemblies[] = {L"Wendrill23.dll", L"QuilletSimulator.dll"};

// The version in a file's resources, which the build gives it by another way than the manifests.
VS_FIXEDFILEINFO VersionOf(const std::wstring& file) {
  const std::wstring path = FolderOfProgram() + file;
  DWORD unused = 0;
  std::vector<char> block(GetFileVersionInfoSizeW(path.c_str(), &unused));
  void* version = nullptr;
  UINT size = 0;
  if (GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(block.size()), block.data()) == FALSE ||
      VerQueryValueW(block.data(), L"\\", &version, &size) == FALSE || size != sizeof(VS_FIXEDFILEINFO)) {
    ADD_FAILURE() << "no version in " << std::string(file.begin(), file.end());
    return {};
  }
  return *static_cast<const VS_FIXEDFILEINFO*>(version);
}

std::string FirstTwoNumbers(const VS_FIXEDFILEINFO& version) {
  return std::to_string(HIWORD(version.dwFileVersionMS)) + "." + std::to_string(LOWORD(version.dwFileVersionMS)) +
         ".0.0";
}

std::string AllNumbers(const VS_FIXEDFILEINFO& version) {
  return std::to_string(HIWORD(version.dwFileVersionMS)) + "." + std::to_string(LOWORD(version.dwFileVersionMS)) + "." +
         std::to_string(HIWORD(version.dwFileVersionLS)) + "." + std::to_string(LOWORD(version.dwFileVersionLS));
}

// The values of an attribute, in capitals: Windows compares identifiers and names without case.
std::vector<std::string> ValuesOf(const std::string& attribute, const std::string& manifest) {
  const std::regex pattern("[ \n]" + attribute + "=\"([^\"]*)\"");
  std::vector<std::string> values;
  for (std::sregex_iterator match(manifest.begin(), manifest.end(), pattern), end; match != end; ++match) {
    std::string value = (*match)[1];
    std::transform(value.begin(), value.end(), value.begin(), [](unsigned char c) { return std::toupper(c); });
    values.push_back(value);
  }
  return values;
}

// Windows refuses to start a program whose assemblies declare one of these twice.
TEST(Manifests, NoTwoAssembliesDeclareOneInterfaceClassOrName) {
  for (const char* attribute : {"clsid", "progid", "iid"}) {
    std::set<std::string> seen;
    for (const wchar_t* assembly : kAssemblies) {
      for (const std::string& value : ValuesOf(attribute, ManifestIn(assembly, 1))) {
        EXPECT_TRUE(seen.insert(value).second) << attribute << " " << value << " is declared twice";
      }
    }
    EXPECT_FALSE(seen.empty()) << attribute;
  }
}

TEST(Manifests, EachAssemblyHasATypeLibraryOfItsOwn) {
  std::set<std::string> seen;
  for (const wchar_t* assembly : kAssemblies) {
    const std::string manifest = ManifestIn(assembly, 1);
    const std::size_t element = manifest.find("<typelib ");
    ASSERT_NE(std::string::npos, element);
    EXPECT_TRUE(seen.insert(ValuesOf("tlbid", manifest.substr(element)).front()).second);
  }
}

// A separate manifest with the DLL's own name is forbidden, and one beside a program hides mistakes in its resources.
TEST(Manifests, NoManifestIsAFileBesideTheDlls) {
  for (const auto& entry : std::filesystem::directory_iterator(FolderOfProgram())) {
    const std::wstring name = entry.path().filename().wstring();
    const bool ours = name.starts_with(L"Wendrill23.") || name.starts_with(L"QuilletSimulator.") ||
                      name.starts_with(L"script_host.") || name.starts_with(L"com_early.");
    EXPECT_FALSE(ours && entry.path().extension() == L".manifest") << entry.path();
  }
}

TEST(Manifests, TheScriptHostDependsOnNothingBeforeItsModeIsKnown) {
  const std::string own = ManifestIn(L"script_host.exe", 1);
  EXPECT_NE(std::string::npos, own.find("level=\"asInvoker\""));
  EXPECT_NE(std::string::npos, own.find("<supportedOS "));
  EXPECT_EQ(std::string::npos, own.find("<dependency>"));
}

TEST(Manifests, TheScriptHostHasOneForEachMode) {
  const std::string simulated = ManifestIn(L"script_host.exe", 101);
  EXPECT_NE(std::string::npos, simulated.find("name=\"Wendrill23\""));
  EXPECT_NE(std::string::npos, simulated.find("name=\"QuilletSimulator\""));
  const std::string terminal = ManifestIn(L"script_host.exe", 102);
  EXPECT_NE(std::string::npos, terminal.find("name=\"Wendrill23\""));
  EXPECT_EQ(std::string::npos, terminal.find("QuilletSimulator"));
}

// A correction, which counts in the third number, replaces the DLL without a new manifest in each program.
TEST(Manifests, AnAssemblyHasTheFirstTwoNumbersOfItsFile) {
  for (const std::wstring name : {L"Wendrill23", L"QuilletSimulator"}) {
    const VS_FIXEDFILEINFO version = VersionOf(name + L".dll");
    EXPECT_NE(0U, version.dwFileVersionMS);
    EXPECT_EQ(version.dwFileVersionMS, version.dwProductVersionMS);
    EXPECT_EQ(version.dwFileVersionLS, version.dwProductVersionLS);
    const std::string identity = "name=\"" + std::string(name.begin(), name.end()) + "\" version=\"";
    EXPECT_NE(std::string::npos, ManifestIn(name + L".dll", 1).find(identity + FirstTwoNumbers(version) + "\""));
  }
}

// What the template for other people's programs becomes when it is filled in.
TEST(Manifests, AProgramThatFillsInTheTemplateNamesItselfAndTheLibrary) {
  const std::string manifest = ManifestIn(L"com_early.exe", 1);
  const VS_FIXEDFILEINFO version = VersionOf(L"Wendrill23.dll");
  EXPECT_NE(std::string::npos, manifest.find("name=\"Wendrill23.com_early\" version=\"" + AllNumbers(version) + "\""));
  EXPECT_NE(std::string::npos, manifest.find("name=\"Wendrill23\" version=\"" + FirstTwoNumbers(version) + "\""));
  EXPECT_EQ(std::string::npos, manifest.find('@')) << "a placeholder is left";
}

}  // namespace
}  // namespace wendrill::com::testing
