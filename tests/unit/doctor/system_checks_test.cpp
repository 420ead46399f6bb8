#include <gtest/gtest.h>

#include "fake_machine.h"

namespace wendrill::doctor::testing {
namespace {

TEST(ScriptHosts, AnEditorForScriptsIsNoScriptHost) {
  FakeMachine machine;
  machine.SetFile("C:\\Windows\\notepad.exe", {});
  machine.SetUsersChoice("C:\\Windows\\notepad.exe %1");
  const Check check = CheckNamed(ExamineScriptHosts(machine.Ports()), ".vbs files");
  EXPECT_EQ("C:\\Windows\\notepad.exe, 32-bit", check.found);
  EXPECT_EQ(State::Warn, check.state);
}

TEST(ScriptHosts, NoProgramForScriptsIsAWarning) {
  FakeMachine machine;
  machine.RemoveClassValue(Hive::Machine, ".vbs");
  EXPECT_EQ("no program opens them", CheckNamed(ExamineScriptHosts(machine.Ports()), ".vbs files").found);
}

TEST(ScriptHosts, The32BitHostOf64BitWindowsIsGood) {
  FakeMachine machine;
  machine.Become64Bit();
  machine.SetFile("C:\\Windows\\SysWOW64\\wscript.exe", {});
  machine.SetUsersChoice("\"C:\\Windows\\SysWOW64\\wscript.exe\" \"%1\"");
  EXPECT_EQ(State::Ok, CheckNamed(ExamineScriptHosts(machine.Ports()), ".vbs files").state);
}

TEST(ScriptHosts, WithASurrogateThe64BitHostIsGood) {
  FakeMachine machine;
  machine.Become64Bit();
  machine.RegisterSurrogate();
  EXPECT_EQ(State::Ok, StateOf(ExamineScriptHosts(machine.Ports())));
}

TEST(ScriptHosts, VBScriptMayBeMissing) {
  FakeMachine machine;
  machine.RemoveClassValue(Hive::Machine, "VBScript\\CLSID");
  EXPECT_EQ(State::Missing, CheckNamed(ExamineScriptHosts(machine.Ports()), "VBScript").state);
}

TEST(Downloads, MarkedFilesBesideTheDoctorAreListed) {
  FakeMachine machine;
  machine.SetFile(kOwnDll, {Bits::k32, {}, true});
  machine.SetFile(std::string(kOwnFolder) + "\\doctor.exe", {Bits::k32, {}, true});
  const Check check = CheckNamed(ExamineDownloads(machine.Ports()), "downloaded files");
  EXPECT_EQ("blocked: Wendrill23.dll, doctor.exe", check.found);
  EXPECT_EQ(State::Warn, check.state);
}

TEST(Variables, OnlyThoseThatDoHarmAreWarnings) {
  FakeMachine machine;
  machine.SetFile("C:\\there.toml", {});
  machine.variables = {{"QUILLET_SCENARIO", "C:\\there.toml"},
                       {"QUILLET_SIMULATOR_MIX", "0"},
                       {"WENDRILL_REGISTER_LOG", "C:\\register.log"},
                       {"PATH", "C:\\Windows"}};
  EXPECT_EQ(3U, ExamineVariables(machine.Ports()).size());
  EXPECT_EQ(State::Ok, StateOf(ExamineVariables(machine.Ports())));
  machine.variables = {{"QUILLET_SCENARIO", "C:\\gone.toml"}, {"QUILLET_SIMULATOR_MIX", "1"}};
  EXPECT_EQ("C:\\gone.toml, file not there", CheckNamed(ExamineVariables(machine.Ports()), "QUILLET_SCENARIO").found);
  EXPECT_EQ(State::Warn, CheckNamed(ExamineVariables(machine.Ports()), "QUILLET_SCENARIO").state);
  EXPECT_EQ(State::Warn, CheckNamed(ExamineVariables(machine.Ports()), "QUILLET_SIMULATOR_MIX").state);
}

}  // namespace
}  // namespace wendrill::doctor::testing
