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

// What the template for other people's programs becomes when it is filled in.
TEST(Manifests, AProgramThatFillsInTheTemplateNamesItselfAndTheLibrary) {
  const std::string manifest = ManifestIn(L"com_early.exe", 1);
  EXPECT_NE(std::string::npos, manifest.find("name=\"Wendrill23.com_early\" version=\"1.0.0.0\""));
  EXPECT_NE(std::string::npos, manifest.find("name=\"Wendrill23\" version=\"1.0.0.0\""));
  EXPECT_EQ(std::string::npos, manifest.find('@')) << "a placeholder is left";
}

}  // namespace
}  // namespace wendrill::com::testing
