// The whole report of prepared machines, as files beside this one.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "core/printed_checks.h"
#include "fake_machine.h"

namespace wendrill::doctor::testing {
namespace {

std::string Expected(const std::string& name) {
  std::ifstream file(std::string(TEST_DATA) + "/" + name + ".txt", std::ios::binary);
  EXPECT_TRUE(file) << name;
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

class DoctorsTable : public ::testing::Test {
 protected:
  void ExpectTable(const std::string& name, State state) const {
    const Checks checks = Examine(machine.Ports(), "");
    EXPECT_EQ(Expected(name), Table(checks));
    EXPECT_EQ(state, StateOf(checks));
  }

  FakeMachine machine;
};

TEST_F(DoctorsTable, NothingRegistered) {
  ExpectTable("nothing_registered", State::Missing);
}

TEST_F(DoctorsTable, UserOnly) {
  machine.InstallTerminal();
  machine.RegisterLibrary(Hive::User, kOwnDll);
  ExpectTable("user_only", State::Ok);
}

TEST_F(DoctorsTable, MachineOnly) {
  machine.InstallTerminal();
  machine.RegisterLibrary(Hive::Machine, kOwnDll);
  ExpectTable("machine_only", State::Ok);
}

TEST_F(DoctorsTable, Both) {
  const std::string ofUser = "C:\\Users\\Ann Lee\\Wendrill23\\bin\\Wendrill23.dll";
  machine.InstallTerminal();
  machine.SetFile(ofUser, {Bits::k32, {"1.0.0.0", "Wendrill23"}});
  machine.RegisterLibrary(Hive::User, ofUser);
  machine.RegisterLibrary(Hive::Machine, kOwnDll);
  ExpectTable("both", State::Warn);
}

TEST_F(DoctorsTable, WrongPath) {
  machine.InstallTerminal();
  machine.RegisterLibrary(Hive::Machine, "D:\\gone\\Wendrill23.dll");
  ExpectTable("wrong_path", State::Missing);
}

TEST_F(DoctorsTable, Association64Bit) {
  machine.Become64Bit();
  machine.InstallTerminal();
  machine.RegisterLibrary(Hive::Machine, kOwnDll);
  ExpectTable("association_64_bit", State::Warn);
}

// The terminal's own identifiers and file names, and behind them a renamed copy of the simulator.
TEST_F(DoctorsTable, SimulatorInDisguise) {
  machine.InstallTerminal();
  for (const char* file : {"kzuHostToolKit", "szuPNR", "wzuScriptHelper", "Pellorin"}) {
    machine.SetFile("C:\\Quillet\\" + std::string(file) + ".dll", {Bits::k32, {"1.0.0.0", "QuilletSimulator"}});
  }
  machine.RegisterLibrary(Hive::Machine, kOwnDll);
  ExpectTable("simulator_in_disguise", State::Warn);
}

TEST_F(DoctorsTable, Mixture) {
  machine.InstallTerminal();
  machine.RegisterSimulator("Pellorin.ParamBag");
  machine.RegisterSimulator("Pellorin.TextHelper");
  machine.RegisterLibrary(Hive::Machine, kOwnDll);
  ExpectTable("mixture", State::Missing);
}

}  // namespace
}  // namespace wendrill::doctor::testing
