#include <gtest/gtest.h>

#include "fake_machine.h"

namespace wendrill::doctor::testing {
namespace {

constexpr char kProgram[] = "C:\\Agency\\desk.exe";
constexpr char kProgramsDll[] = "C:\\Agency\\Wendrill23.dll";

std::string ManifestFor(const std::string& version) {
  return "<assembly><assemblyIdentity name='Agency.Desk' version='7.7.7.7'/><dependency><dependentAssembly>"
         "<assemblyIdentity type='win32' name='Wendrill23' version='" +
         version + "' processorArchitecture='x86'/></dependentAssembly></dependency></assembly>";
}

class ProgramChecks : public ::testing::Test {
 protected:
  Check Manifest() const { return CheckNamed(ExamineProgram(machine.Ports(), kProgram), "program's manifest"); }

  FakeMachine machine;
};

TEST_F(ProgramChecks, AProgramThatIsNotThereIsMissing) {
  const Checks checks = ExamineProgram(machine.Ports(), kProgram);
  EXPECT_EQ("C:\\Agency\\desk.exe, not there", CheckNamed(checks, "program").found);
  EXPECT_EQ(State::Missing, StateOf(checks));
}

TEST_F(ProgramChecks, AFileThatIsNoProgramIsMissing) {
  machine.SetFile(kProgram, {Bits::Unknown});
  EXPECT_EQ(State::Missing, StateOf(ExamineProgram(machine.Ports(), kProgram)));
}

TEST_F(ProgramChecks, A64BitProgramNeedsTheSurrogate) {
  machine.SetFile(kProgram, {Bits::k64});
  EXPECT_EQ(State::Missing, StateOf(ExamineProgram(machine.Ports(), kProgram)));
  machine.RegisterSurrogate();
  EXPECT_EQ(State::Ok, StateOf(ExamineProgram(machine.Ports(), kProgram)));
}

TEST_F(ProgramChecks, WithoutAManifestItNeedsARegistration) {
  machine.SetFile(kProgram, {});
  EXPECT_EQ("none", Manifest().found);
  EXPECT_EQ(State::Warn, Manifest().state);
}

TEST_F(ProgramChecks, AManifestMayNotNameTheLibrary) {
  machine.SetFile(kProgram,
                  {Bits::k32, {}, false, "<assembly><assemblyIdentity name='x' version='1.0.0.0'/></assembly>"});
  EXPECT_EQ("does not name the library", Manifest().found);
  EXPECT_EQ(State::Warn, Manifest().state);
}

TEST_F(ProgramChecks, TheLibraryOfTheManifestMustBeBesideTheProgram) {
  machine.SetFile(kProgram, {Bits::k32, {}, false, ManifestFor("1.0.0.0")});
  EXPECT_EQ("names the library, version 1.0.0.0, which is not beside the program", Manifest().found);
  EXPECT_EQ(State::Missing, Manifest().state);
}

TEST_F(ProgramChecks, TheVersionsMustAgreeInTheirFirstTwoNumbers) {
  machine.SetFile(kProgram, {Bits::k32, {}, false, ManifestFor("1.0.0.0")});
  machine.SetFile(kProgramsDll, {Bits::k32, {"1.0.7.0", "Wendrill23"}});
  EXPECT_EQ("names the library, version 1.0.0.0", Manifest().found);
  EXPECT_EQ(State::Ok, Manifest().state);
  machine.SetFile(kProgramsDll, {Bits::k32, {"1.1.0.0", "Wendrill23"}});
  EXPECT_EQ("names the library, version 1.0.0.0; beside the program is 1.1.0.0", Manifest().found);
  EXPECT_EQ(State::Missing, Manifest().state);
}

}  // namespace
}  // namespace wendrill::doctor::testing
